#include "example_art.h"

#include <algorithm>
#include <cmath>

namespace kovra::examples {

namespace {

constexpr aurel::Color32 kOutline = 0xFF3B2A20;
constexpr float kOutlineWidth = 2.0f;

// A stroke drawn as discs half a pixel apart, its radius widened by `grow`.
void Sweep(aurel::ImageSurface& sheet, const PartArt& part, const Stroke& s, float grow,
           aurel::Color32 colour) {
    const float length = std::hypot(s.x1 - s.x0, s.y1 - s.y0);
    const int steps = std::max(1, static_cast<int>(length * 2.0f));
    for (int i = 0; i <= steps; ++i) {
        const float t = static_cast<float>(i) / static_cast<float>(steps);
        sheet.FillCircle(static_cast<float>(part.x) + s.x0 + (s.x1 - s.x0) * t,
                         static_cast<float>(part.y) + s.y0 + (s.y1 - s.y0) * t,
                         s.r0 + (s.r1 - s.r0) * t + grow, colour);
    }
}

// A disc as a stroke of no length.
Stroke Dot(float x, float y, float r, aurel::Color32 colour) {
    return {x, y, r, x, y, r, colour};
}

}  // namespace

aurel::ImageSurface DrawSheet(int width, int height, const std::vector<PartArt>& parts) {
    aurel::ImageSurface sheet;
    sheet.Resize(width, height);
    sheet.Clear(0x00000000);
    for (const PartArt& part : parts) {
        for (const Stroke& stroke : part.body) {
            Sweep(sheet, part, stroke, kOutlineWidth, kOutline);
        }
        for (const Stroke& stroke : part.body) {
            Sweep(sheet, part, stroke, 0.0f, stroke.colour);
        }
        for (const Stroke& stroke : part.details) {
            Sweep(sheet, part, stroke, 0.0f, stroke.colour);
        }
    }
    return sheet;
}

std::vector<PartArt> CatParts() {
    constexpr aurel::Color32 fur = 0xFFF0A04B;
    constexpr aurel::Color32 stripe = 0xFFD47F2A;
    constexpr aurel::Color32 cream = 0xFFFBE7C6;
    constexpr aurel::Color32 pink = 0xFFE77C8E;
    constexpr aurel::Color32 eye = 0xFF2B2B3A;
    constexpr aurel::Color32 white = 0xFFFFFFFF;
    return {
        {"head",
         0,
         0,
         84,
         88,
         {{20, 36, 6, 23, 12, 3, fur}, {64, 36, 6, 61, 12, 3, fur}, Dot(42, 50, 30, fur)},
         {{22, 30, 3, 24, 18, 1.5f, pink},
          {62, 30, 3, 60, 18, 1.5f, pink},
          {36, 22, 2, 42, 32, 1.5f, stripe},
          {48, 22, 2, 42, 32, 1.5f, stripe},
          {34, 64, 9, 50, 64, 9, cream},
          Dot(30, 47, 7, white),
          Dot(54, 47, 7, white),
          Dot(31, 48, 4.5f, eye),
          Dot(55, 48, 4.5f, eye),
          Dot(29, 46, 1.5f, white),
          Dot(53, 46, 1.5f, white),
          {39, 58, 3, 45, 58, 3, pink}}},
        {"torso",
         88,
         0,
         60,
         88,
         {{30, 22, 21, 30, 64, 20, fur}},
         {{30, 34, 11, 30, 62, 13, cream}, {12, 30, 2, 18, 30, 2, stripe}, {42, 30, 2, 48, 30, 2, stripe}}},
        {"upper arm", 148, 0, 28, 52, {{14, 11, 9, 14, 41, 8, fur}}, {{10, 24, 1.5f, 18, 24, 1.5f, stripe}}},
        {"forearm",
         176,
         0,
         28,
         58,
         {{14, 10, 8, 14, 40, 7, fur}, Dot(14, 45, 9, fur)},
         {Dot(14, 48, 5, cream), Dot(10, 52, 2, cream), Dot(18, 52, 2, cream)}},
        {"thigh", 204, 0, 32, 56, {{16, 13, 12, 16, 44, 9, fur}}, {{9, 28, 1.5f, 23, 28, 1.5f, stripe}}},
        {"shin",
         0,
         88,
         48,
         62,
         {{18, 11, 9, 18, 42, 8, fur}, {16, 50, 8, 34, 50, 8, fur}},
         {{20, 52, 5, 34, 52, 5, cream}}},
        {"tail",
         48,
         150,
         112,
         26,
         {{100, 13, 8, 10, 13, 5.5f, fur}},
         {{8, 13, 5.5f, 22, 13, 5, cream},
          {50, 7, 1.5f, 50, 19, 1.5f, stripe},
          {72, 6, 1.5f, 72, 20, 1.5f, stripe}}},
    };
}

std::vector<PartArt> CraneParts() {
    constexpr aurel::Color32 steel = 0xFF8FA3B5;
    constexpr aurel::Color32 paint = 0xFFF2C230;
    constexpr aurel::Color32 dark = 0xFF4A5663;
    constexpr aurel::Color32 rivet = 0xFFDDE6EE;
    return {
        {"base",
         0,
         0,
         112,
         56,
         {{20, 40, 14, 92, 40, 14, dark}, {40, 22, 16, 72, 22, 16, paint}},
         {Dot(56, 22, 7, dark), Dot(56, 22, 3, rivet), Dot(22, 40, 5, steel), Dot(56, 40, 5, steel),
          Dot(90, 40, 5, steel)}},
        {"boom",
         112,
         0,
         36,
         112,
         {{18, 12, 13, 18, 100, 11, paint}},
         {{18, 24, 4, 18, 88, 4, dark}, Dot(18, 12, 5, rivet), Dot(18, 100, 5, rivet)}},
        {"jib",
         148,
         0,
         30,
         92,
         {{15, 10, 11, 15, 82, 9, paint}},
         {{15, 22, 3, 15, 70, 3, dark}, Dot(15, 10, 4, rivet), Dot(15, 82, 4, rivet)}},
        {"wrist",
         178,
         0,
         26,
         70,
         {{13, 9, 9, 13, 61, 8, steel}},
         {Dot(13, 9, 3.5f, rivet), Dot(13, 61, 3.5f, rivet)}},
        {"claw",
         204,
         0,
         48,
         52,
         {{24, 8, 8, 24, 18, 10, dark}, {14, 20, 5, 8, 44, 3, steel}, {34, 20, 5, 40, 44, 3, steel}},
         {Dot(24, 14, 3, rivet)}},
    };
}

}  // namespace kovra::examples
