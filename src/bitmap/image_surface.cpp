#include "bitmap/image_surface.h"

#include <utility>

#include "bitmap/blit.h"
#include "bitmap/circles.h"
#include "bitmap/lines.h"
#include "bitmap/shapes.h"

namespace aurel {

ImageSurface::ImageSurface(const ImageSurface& other) : DibSurface() {
    CopyFrom(*other.source_);
}

ImageSurface::ImageSurface(ImageSurface&& other) noexcept
    : DibSurface(std::move(other)), source_(other.source_ == &other ? this : other.source_) {
    other.source_ = &other;
}

ImageSurface& ImageSurface::operator=(const ImageSurface& other) {
    if (&other != this) {
        CopyFrom(*other.source_);
        source_ = this;
    }
    return *this;
}

ImageSurface& ImageSurface::operator=(ImageSurface&& other) noexcept {
    if (&other != this) {
        DibSurface::operator=(std::move(other));
        source_ = other.source_ == &other ? this : other.source_;
        other.source_ = &other;
    }
    return *this;
}

void ImageSurface::Resize(int width, int height) {
    source_->Create(width, height, 32);
}

void ImageSurface::Reset() {
    source_->Create(0, 0, 0);
}

SurfaceView ImageSurface::View() const {
    if (source_->Depth() != 32 || !source_->Bits()) {
        return {};
    }
    return {source_->Stride(), source_->SectionWidth(), source_->SectionHeight(),
            reinterpret_cast<std::uint32_t*>(source_->Bits())};
}

std::uint32_t* ImageSurface::Row(int y) const {
    const SurfaceView view = View();
    return reinterpret_cast<std::uint32_t*>(reinterpret_cast<std::byte*>(view.bits) +
                                            static_cast<std::ptrdiff_t>(view.stride) * y);
}

bool ImageSurface::GetPixel(int x, int y, Color32& out) const {
    if (x < 0 || y < 0 || x >= Width() || y >= Height()) {
        return false;
    }
    out = Row(y)[x];
    return true;
}

WrapperBitmap ImageSurface::Bitmap() const {
    const SurfaceView view = View();
    return {view.bits, view.width, view.height, view.stride / 4};
}

void ImageSurface::Clear(Color32 colour) {
    WrapperBitmap target = Bitmap();
    aurel::Clear(target, colour);
}

void ImageSurface::FillRect(int left, int top, int right, int bottom, Color32 colour) {
    WrapperBitmap target = Bitmap();
    aurel::FillRect(target, left, top, right, bottom, colour);
}

void ImageSurface::DrawRect(int left, int top, int right, int bottom, Color32 colour) {
    WrapperBitmap target = Bitmap();
    aurel::DrawRect(target, left, top, right, bottom, colour);
}

void ImageSurface::DrawLine(int x1, int y1, int x2, int y2, Color32 colour) {
    WrapperBitmap target = Bitmap();
    aurel::DrawLine(target, x1, y1, x2, y2, colour);
}

void ImageSurface::DrawLineF(float x1, float y1, float x2, float y2, Color32 colour, float opacity,
                             bool antiAlias) {
    WrapperBitmap target = Bitmap();
    aurel::DrawLineF(target, x1, y1, x2, y2, colour, opacity, antiAlias);
}

void ImageSurface::DrawCircle(float cx, float cy, float radius, Color32 colour) {
    WrapperBitmap target = Bitmap();
    aurel::DrawCircle(target, cx, cy, radius, colour);
}

void ImageSurface::FillCircle(float cx, float cy, float radius, Color32 colour) {
    WrapperBitmap target = Bitmap();
    aurel::FillCircle(target, cx, cy, radius, colour);
}

void ImageSurface::DrawRoundRect(float x, float y, float w, float h, float radius, Color32 colour,
                                 float opacity, bool antiAlias) {
    WrapperBitmap target = Bitmap();
    aurel::DrawRoundRect(target, x, y, w, h, radius, colour, opacity, antiAlias);
}

void ImageSurface::FillTriangle(float x1, float y1, float x2, float y2, float x3, float y3, Color32 colour,
                                float opacity) {
    WrapperBitmap target = Bitmap();
    aurel::FillTriangle(target, x1, y1, x2, y2, x3, y3, colour, opacity);
}

void ImageSurface::DrawText(std::string_view text, int x, int y, int width, int height, Color32 colour,
                            const TextFont& font, const TextStyle& style) {
    if (DeviceContext* context = source_->Context()) {
        aurel::DrawText(*context, text, x, y, width, height, colour, font, style);
    }
}

void ImageSurface::Blit(float sx, float sy, float sw, float sh, ImageSurface& dest, int dx, int dy, int dw,
                        int dh, float opacity, bool keepAlpha) const {
    WrapperBitmap target = dest.Bitmap();
    aurel::Blit(Bitmap(), sx, sy, sw, sh, target, dx, dy, dw, dh, opacity, keepAlpha);
}

void ImageSurface::DrawQuad(float sx, float sy, float sw, float sh, ImageSurface& dest, QuadCorners corners,
                            float opacity, Color32 tint) const {
    WrapperBitmap target = dest.Bitmap();
    aurel::DrawQuad(Bitmap(), sx, sy, sw, sh, target, corners, opacity, tint);
}

void ImageSurface::DrawQuadMapped(QuadCorners sourceCorners, ImageSurface& dest, QuadCorners corners,
                                  float opacity, Color32 tint) const {
    WrapperBitmap target = dest.Bitmap();
    aurel::DrawQuadMapped(Bitmap(), sourceCorners, target, corners, opacity, tint);
}

void ImageSurface::DrawQuadMask(float sx, float sy, float sw, float sh, ImageSurface& dest,
                                QuadCorners corners, Color32 flag) const {
    WrapperBitmap target = dest.Bitmap();
    aurel::DrawQuadMask(Bitmap(), sx, sy, sw, sh, target, corners, flag);
}

void ImageSurface::Rescale(int width, int height) {
    ImageSurface scaled;
    scaled.Resize(width, height);
    Blit(0, 0, static_cast<float>(Width()), static_cast<float>(Height()), scaled, 0, 0, width, height, 1.0f,
         false);
    *source_ = std::move(static_cast<DibSurface&>(scaled));
}

void ImageSurface::Halve(const ImageSurface& source) {
    WrapperBitmap target = Bitmap();
    aurel::Halve(target, source.Bitmap());
}

}  // namespace aurel
