// The window library comes without a reader of its own here; the system has one.
#include "PictureReader.h"

#include <wx/image.h>
#include <wx/stream.h>

#include <wx/msw/private.h>

#include <objidl.h>

#include <algorithm>
#include <memory>
#include <vector>

// The system's headers cause several of the warnings that are on here.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wpedantic"
#pragma GCC diagnostic ignored "-Wunused-parameter"
#include <gdiplus.h>
#pragma GCC diagnostic pop

namespace Forms {

namespace {

using namespace Gdiplus;

std::vector<unsigned char> AllOf(wxInputStream& oStream) {
  std::vector<unsigned char> ab(static_cast<std::size_t>(oStream.GetLength()));
  oStream.Read(ab.data(), ab.size());
  ab.resize(oStream.LastRead());
  return ab;
}

IStream* StreamOf(const std::vector<unsigned char>& ab) {
  const HGLOBAL hBytes = GlobalAlloc(GMEM_MOVEABLE, std::max<std::size_t>(ab.size(), 1));
  if (!hBytes) return nullptr;
  std::copy(ab.begin(), ab.end(), static_cast<unsigned char*>(GlobalLock(hBytes)));
  GlobalUnlock(hBytes);
  IStream* poStream = nullptr;
  if (FAILED(CreateStreamOnHGlobal(hBytes, TRUE, &poStream))) GlobalFree(hBytes);
  return poStream;
}

/// The rows of a picture with blue, green, red and transparency, one behind the other.
bool Copy(Bitmap& oFrom, wxImage& oTo) {
  const int nWidth = static_cast<int>(oFrom.GetWidth()),
            nHeight = static_cast<int>(oFrom.GetHeight());
  const Rect oAll(0, 0, nWidth, nHeight);
  BitmapData oData;
  if (nWidth == 0 || oFrom.LockBits(&oAll, ImageLockModeRead, PixelFormat32bppARGB, &oData) != Ok)
    return false;
  oTo.Create(nWidth, nHeight, false);
  oTo.SetAlpha();
  for (int y = 0; y < nHeight; ++y) {
    const auto* p = static_cast<const unsigned char*>(oData.Scan0) + y * oData.Stride;
    for (int x = 0; x < nWidth; ++x, p += 4) {
      oTo.SetRGB(x, y, p[2], p[1], p[0]);
      oTo.SetAlpha(x, y, p[3]);
    }
  }
  oFrom.UnlockBits(&oData);
  return true;
}

class SystemReader : public wxImageHandler {
 public:
  SystemReader() {
    SetType(wxBITMAP_TYPE_PNG);
    const GdiplusStartupInput oInput;
    mbRuns = GdiplusStartup(&mlToken, &oInput, nullptr) == Ok;
  }
  ~SystemReader() override {
    if (mbRuns) GdiplusShutdown(mlToken);
  }
  bool LoadFile(wxImage* poImage, wxInputStream& oStream, bool, int) override {
    IStream* const poStream = mbRuns ? StreamOf(AllOf(oStream)) : nullptr;
    if (!poStream) return false;
    const std::unique_ptr<Bitmap> pBitmap(Bitmap::FromStream(poStream));
    poStream->Release();
    return pBitmap && pBitmap->GetLastStatus() == Ok && Copy(*pBitmap, *poImage);
  }

 protected:
  /// Asked only where the kind of a picture isn't named.
  bool DoCanRead(wxInputStream&) override { return true; }

 private:
  ULONG_PTR mlToken = 0;
  bool mbRuns = false;
};

}  // namespace

void AddPictureReader() {
  wxImage::AddHandler(new SystemReader);
}

}  // namespace Forms
