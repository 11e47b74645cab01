#include "DialogTest.h"
#include "Panelix/NkDialogIntegerSlider.h"
#include "Panelix/NkDialogRealSlider.h"

using arbora::Ref;

TEST_F(DialogTest, SlidersPrintTheirNumberEachInItsOwnWay) {
  const Ref<NkDialogSlider> base(new NkDialogSlider);
  const Ref<NkDialogIntegerSlider> integer(new NkDialogIntegerSlider);
  const Ref<NkDialogRealSlider> real(new NkDialogRealSlider);
  EXPECT_EQ(base->format.getValue(), "%3f");
  EXPECT_EQ(integer->format.getValue(), "%d");
  EXPECT_EQ(real->format.getValue(), "%.3f");
  // A file says so for the integer slider only.
  EXPECT_EQ(writeText(base.get()).find("format"), std::string::npos);
  EXPECT_NE(writeText(integer.get()).find("format \"%d\""), std::string::npos);
  EXPECT_EQ(writeText(real.get()).find("format"), std::string::npos);
}

TEST_F(DialogTest, SlidersTakeNumbersBeyondTheirLimitsFromAFile) {
  const auto slider = readOne<NkDialogIntegerSlider>("DialogIntegerSlider { min 5 max 2 value 99 fixedLimits TRUE }");
  ASSERT_TRUE(slider);
  EXPECT_EQ(slider->min.getValue(), 5);
  EXPECT_EQ(slider->max.getValue(), 2);
  EXPECT_EQ(slider->value.getValue(), 99);
}

TEST_F(DialogTest, SlidersCanTellTheirAuditorsInAnotherWay) {
  class OwnWay : public NkDialogRealSlider {
  public:
    int calls = 0;
    void applyDlgCptAuditor() override { ++calls; }
  };
  const Ref<OwnWay> slider(new OwnWay);
  static_cast<NkDialogRealSlider*>(slider.get())->applyDlgCptAuditor();
  EXPECT_EQ(slider->calls, 1);
}
