#include "arbora/base/NbPList.h"

#include "tests/support/TestSupport.h"

#include <gtest/gtest.h>

namespace {

class PList : public ::testing::Test {
protected:
  int m_a = 0;
  int m_b = 0;
  int m_c = 0;
};

TEST_F(PList, AppendsInsertsAndRemoves) {
  NbPList list(8);
  EXPECT_EQ(list.getLength(), 0);
  list.append(&m_a);
  list.append(&m_c);
  list.insert(&m_b, 1);
  EXPECT_EQ(list.find(&m_b), 1);
  EXPECT_EQ(list.find(this), -1);
  EXPECT_EQ(list.get(2), &m_c);
  list.remove(0);
  EXPECT_EQ(list.get(0), &m_b);
  list.removeItem(&m_b);
  list.removeItem(this);
  EXPECT_EQ(list.getLength(), 1);
  list.insert(&m_a, 1);
  EXPECT_EQ(list[1], &m_a);
}

TEST_F(PList, GrowsWhenWrittenPastTheEnd) {
  NbPList list;
  list[3] = &m_a;
  EXPECT_EQ(list.getLength(), 4);
  EXPECT_EQ(list.get(0), nullptr);
  EXPECT_EQ(list.get(3), &m_a);
  list.set(5, &m_b);
  EXPECT_EQ(list.getLength(), 6);
  list.truncate(1);
  list.truncate(9);
  EXPECT_EQ(list.getLength(), 1);
}

TEST_F(PList, CopiesAreIndependent) {
  NbPList list;
  list.append(&m_a);
  NbPList other(list);
  other.append(&m_b);
  EXPECT_EQ(list.getLength(), 1);
  list.copy(other);
  EXPECT_EQ(list.getLength(), 2);
}

TEST_F(PList, RefusesWrongIndices) {
  NbPList list;
  list.append(&m_a);
  const ExpectMessages expected({"NbPList::insert(): Index 2 is out of range 0 - 1", "Index 1 is out of range 0 - 0",
                                 "NbPList::get(): Index -1", "NbPList::operator[](): Index -1",
                                 "NbPList::operator[](): Index 67108864"});
  list.insert(&m_b, 2);
  list.remove(1);
  EXPECT_EQ(list.get(-1), nullptr);
  list[-1] = &m_b;
  list[1 << 26] = &m_b;
  EXPECT_EQ(list.getLength(), 1);
  EXPECT_EQ(list.get(0), &m_a);
}

} // namespace
