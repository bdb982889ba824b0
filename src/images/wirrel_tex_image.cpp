#include "images/wirrel_tex_image.h"

#include <cstdlib>
#include <cstring>
#include <limits>

#include "images/image_file.h"
#include "images/vyl_lib.h"
#include "settings/atomic_file.h"

namespace kovra {

namespace {

// The block in the slot is replaced by a fresh one of the size; its contents are not kept.
int Allocate(void** slot, std::uint32_t sizeLow, std::uint32_t sizeHigh) {
    if (!slot) {
        return kVylNoSlot;
    }
    std::free(*slot);
    *slot = nullptr;
    const std::uint64_t size = std::uint64_t{sizeHigh} << 32 | sizeLow;
    if (size == 0) {
        return kVylOk;
    }
    *slot = std::aligned_alloc(16, (size + 15) & ~std::uint64_t{15});
    return *slot ? kVylOk : kVylNoMemory;
}

int CreateSurface(void* user, const VylImageDesc& desc) {
    static_cast<aurel::ImageSurface*>(user)->Create(static_cast<int>(desc.width),
                                                    static_cast<int>(desc.height), VylImageGetBpp(desc));
    return kVylOk;
}

int Idle() {
    return kVylOk;
}

int StoreRows(void* user, const void* source, int x, int y, int width, int height, int, int sourceStride) {
    const auto& surface = *static_cast<aurel::ImageSurface*>(user);
    const auto* from = static_cast<const std::uint8_t*>(source);
    for (int row = 0; row < height; ++row) {
        std::memcpy(surface.Row(y + row) + x, from + static_cast<std::size_t>(row) * sourceStride,
                    static_cast<std::size_t>(width) * 4);
    }
    return kVylOk;
}

int FetchRows(void* user, void* buffer, int x, int y, int width, int height, int, int bufferStride) {
    const auto& surface = *static_cast<aurel::ImageSurface*>(user);
    auto* to = static_cast<std::uint8_t*>(buffer);
    for (int row = 0; row < height; ++row) {
        std::memcpy(to + static_cast<std::size_t>(row) * bufferStride, surface.Row(y + row) + x,
                    static_cast<std::size_t>(width) * 4);
    }
    return kVylOk;
}

const VylImageCallbacks kSurfaceCallbacks{0, Allocate, CreateSurface, Idle, StoreRows, FetchRows};

int LoadInto(aurel::ImageSurface& surface, const char* name, const VylStream& stream) {
    const int format = VylUtilGetFileFormat(name, &stream);
    VylImageState state;
    VylImageInit(state, kSurfaceCallbacks, &surface);
    VylPixelFormat pixels;
    VylUtilSetFormat(pixels, 0, 8, 4, 4, 0, 8, 0);
    const int result = VylImageLoad(format, stream, state, 0, pixels);
    VylImageFree(state);
    if (result != kVylOk) {
        surface.Reset();
    }
    return result;
}

int SaveFrom(const aurel::ImageSurface& surface, int format, const VylStream& stream) {
    VylImageState state;
    VylImageInit(state, kSurfaceCallbacks, const_cast<aurel::ImageSurface*>(&surface));
    state.width = static_cast<std::uint32_t>(surface.Width());
    state.height = static_cast<std::uint32_t>(surface.Height());
    const int result = VylImageSave(format, stream, state, 0);
    VylImageFree(state);
    return result;
}

}  // namespace

int WirrelTexImage::Load(const aurel::DualString& file) {
    ImageFileReader reader;
    if (!reader.Open(file)) {
        surface.Reset();
        return kVylCannotOpen;
    }
    return LoadInto(surface, file.c_str(), VylFileCallbacks(reader));
}

bool WirrelTexImage::LoadMemory(const void* data, std::size_t size) {
    if (size > std::numeric_limits<std::uint32_t>::max()) {
        surface.Reset();
        return false;
    }
    VylMemoryStream record{static_cast<std::uint8_t*>(const_cast<void*>(data)),
                           static_cast<std::uint32_t>(size)};
    return LoadInto(surface, nullptr, VylMemoryCallbacks(record)) == kVylOk;
}

bool WirrelTexImage::Save(const aurel::DualString& file) const {
    const int format = VylUtilGetFileFormat(file.c_str(), nullptr);
    if (format == kVylUnknown || surface.IsEmpty()) {
        return false;
    }
    return aurel::WriteFileAtomically(file, [&](aurel::BinStream& stream) {
        return SaveFrom(surface, format, VylFileCallbacks(stream)) == kVylOk;
    });
}

std::uint32_t WirrelTexImage::SaveMemory(void* buffer, std::uint32_t size) const {
    VylMemoryStream record{static_cast<std::uint8_t*>(buffer), size};
    return SaveFrom(surface, kVylPng, VylMemoryCallbacks(record)) == kVylOk ? record.highWater : 0;
}

void WirrelTexImage::UpdateMarks(std::int32_t index, int x, int y, int width, int height) {
    const int right = x + width - 1;
    const int bottom = y + height - 1;
    std::map<std::uint32_t, TexMark> starts;
    if (surface.IsEmpty()) {
        starts[0] = TexMark(0.0f, 0.0f);
    } else {
        for (int row = y; row <= bottom; ++row) {
            std::uint32_t previous = 0;
            for (int column = x; column <= right; ++column) {
                const std::uint32_t cell = mask.CellAt(column, row);
                if (cell != 0 && cell != previous) {
                    // A rectangle one pixel wide or high divides 0 by 0 here: the mark is then not a number.
                    starts[cell] = TexMark(static_cast<float>(column - x) / static_cast<float>(right - x),
                                           static_cast<float>(row - y) / static_cast<float>(bottom - y));
                    previous = cell;
                }
            }
        }
    }
    std::vector<TexMark>& list = marks[index];
    list.clear();
    for (const auto& [cell, point] : starts) {
        list.push_back(point);
    }
}

}  // namespace kovra
