#pragma once
// The 32-bit top-down bitmap that images and views hold: the drawing target and source everywhere. A
// surface reads either its own pixels or, as a view, those of another DibSurface, without a copy. Each
// drawing call wraps the pixels read in a WrapperBitmap on the stack and hands it to the drawing routine.

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "base/color32.h"
#include "bitmap/bitmap.h"
#include "bitmap/dib_surface.h"
#include "bitmap/quad.h"
#include "bitmap/text.h"

namespace aurel {

// Where the pixels of a surface lie, as its drawing loops read them.
struct SurfaceView {
    int stride = 0;  // bytes from one row to the next
    int width = 0;
    int height = 0;
    std::uint32_t* bits = nullptr;
};

class ImageSurface : public DibSurface {
public:
    ImageSurface() = default;
    // A deep copy of the pixels the other reads.
    ImageSurface(const ImageSurface& other);
    // A view of the target's pixels, which must outlive it; its own stay empty.
    explicit ImageSurface(DibSurface* target) : source_(target) {}
    ImageSurface(ImageSurface&& other) noexcept;
    // A deep copy, depth included, after which the surface reads its own pixels. Assigning a surface to
    // itself does nothing.
    ImageSurface& operator=(const ImageSurface& other);
    ImageSurface& operator=(ImageSurface&& other) noexcept;
    ~ImageSurface() override = default;

    // Reads the target's pixels from now on, without a copy.
    void Attach(DibSurface& target) { source_ = &target; }
    // New zeroed 32-bit pixels on the surface read; the contents are not kept.
    void Resize(int width, int height);
    void Reset();

    bool IsEmpty() const { return Width() == 0 || Height() == 0; }
    int Width() const { return View().width; }
    int Height() const { return View().height; }
    SurfaceView View() const;
    std::uint32_t* Row(int y) const;
    std::size_t ByteSize() const { return static_cast<std::size_t>(View().stride) * Height(); }
    // False outside the surface; else stores the pixel word.
    bool GetPixel(int x, int y, Color32& out) const;
    WrapperBitmap Bitmap() const;

    void Clear(Color32 colour);
    void FillRect(int left, int top, int right, int bottom, Color32 colour);
    void DrawRect(int left, int top, int right, int bottom, Color32 colour);
    void DrawLine(int x1, int y1, int x2, int y2, Color32 colour);
    void DrawLineF(float x1, float y1, float x2, float y2, Color32 colour, float opacity, bool antiAlias);
    void DrawCircle(float cx, float cy, float radius, Color32 colour);
    void FillCircle(float cx, float cy, float radius, Color32 colour);
    void DrawRoundRect(float x, float y, float w, float h, float radius, Color32 colour, float opacity,
                       bool antiAlias);
    void FillTriangle(float x1, float y1, float x2, float y2, float x3, float y3, Color32 colour,
                      float opacity);
    void DrawText(std::string_view text, int x, int y, int width, int height, Color32 colour,
                  const TextFont& font, const TextStyle& style = {});

    // This surface as the source of a scaled copy, a textured quad or a mask (see blit.h and quad.h).
    void Blit(float sx, float sy, float sw, float sh, ImageSurface& dest, int dx, int dy, int dw, int dh,
              float opacity, bool keepAlpha) const;
    void DrawQuad(float sx, float sy, float sw, float sh, ImageSurface& dest, QuadCorners corners,
                  float opacity, Color32 tint) const;
    void DrawQuadMapped(QuadCorners sourceCorners, ImageSurface& dest, QuadCorners corners, float opacity,
                        Color32 tint) const;
    void DrawQuadMask(float sx, float sy, float sw, float sh, ImageSurface& dest, QuadCorners corners,
                      Color32 flag) const;

    // Replaces the pixels read by a copy scaled to the new size: the blit at opacity 1 onto cleared pixels.
    void Rescale(int width, int height);
    // This surface becomes the two by two reduction of the source, over at most half its size.
    void Halve(const ImageSurface& source);

private:
    DibSurface* source_ = this;
};

}  // namespace aurel
