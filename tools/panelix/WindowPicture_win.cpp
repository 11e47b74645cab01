#include "tools/panelix/WindowPicture.h"

panelix::WindowPicture::WindowPicture(HWND window) {
  RECT area{};
  GetWindowRect(window, &area);
  size.setValue(area.right - area.left, area.bottom - area.top);
  // Not the window's own context, which leaves its children out.
  const HDC source = GetDCEx(window, nullptr, DCX_WINDOW | DCX_CACHE);
  const HDC target = CreateCompatibleDC(source);
  const HBITMAP bitmap = CreateCompatibleBitmap(source, size[0], size[1]);
  const HGDIOBJ before = SelectObject(target, bitmap);
  BitBlt(target, 0, 0, size[0], size[1], source, 0, 0, SRCCOPY);
  SelectObject(target, before);

  constexpr int kBytes = 4; // Blue, green, red and nothing.
  const auto count = static_cast<std::size_t>(size[0]) * static_cast<std::size_t>(size[1]);
  std::vector<unsigned char> bits(count * kBytes);
  BITMAPINFO format{};
  format.bmiHeader.biSize = sizeof format.bmiHeader;
  format.bmiHeader.biWidth = size[0];
  format.bmiHeader.biHeight = size[1];
  format.bmiHeader.biPlanes = 1;
  format.bmiHeader.biBitCount = 8 * kBytes;
  format.bmiHeader.biCompression = BI_RGB;
  GetDIBits(target, bitmap, 0, static_cast<UINT>(size[1]), bits.data(), &format, DIB_RGB_COLORS);
  DeleteObject(bitmap);
  DeleteDC(target);
  ReleaseDC(window, source);
  pixels.reserve(3 * count);
  for (std::size_t i = 0; i < bits.size(); i += kBytes)
    pixels.insert(pixels.end(), {bits[i + 2], bits[i + 1], bits[i]});
}
