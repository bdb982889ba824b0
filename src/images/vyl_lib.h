#pragma once
// The image library: decoding and encoding of image files, behind a small set of operations so that
// nothing else in the program sees the codec library that does the work. Bytes come and go through a
// table of stream callbacks (over a file or over a block of memory); pixels come and go through a table
// of image callbacks that the caller provides, always as four 8-bit channels blue, green, red, alpha, rows
// from the top down. Every operation answers 0 for success or one of the codes below.

#include <cstdint>

#include "settings/bin_stream.h"

namespace kovra {

enum VylCode : int {
    kVylOk = 0,
    kVylNoMemory = 2,       // the allocate callback could not get the block
    kVylNoSlot = 3,         // the allocate callback was given no slot
    kVylNoFormat = 10,      // not one of the formats the library knows
    kVylDecodeFailed = 11,  // not an image of its format, damaged, or beyond the resource limits
    kVylEncodeFailed = 12,
    kVylBadPixelFormat = 13,
    kVylCannotOpen = 35,    // the file can't be opened for reading or writing, or isn't a regular file
    kVylStreamFailed = 37,  // a stream callback failed
};

// The library's format numbers; memory saves use kVylPng.
enum VylFormat : int {
    kVylUnknown = 0,
    kVylBmp = 1,
    kVylTga = 2,
    kVylJpeg = 3,
    kVylGif = 4,
    kVylPng = 5,
    kVylPct = 6,
    kVylPsd = 7,
};

// Stream callbacks, each with the handle first, answering 0 or kVylStreamFailed.
struct VylStream {
    int (*read)(void* handle, std::uint32_t count, void* buffer);
    int (*write)(void* handle, std::uint32_t count, const void* buffer);
    int (*seek)(void* handle, std::int64_t offset, int origin);  // origin 0 start, 1 current, 2 end
    int (*tell)(void* handle, std::uint64_t& position);
    void* handle;
};

// The record the memory callbacks work on: reads and writes stay within `size` and raise `highWater`
// to the largest position reached.
struct VylMemoryStream {
    std::uint8_t* data = nullptr;
    std::uint32_t size = 0;
    std::uint32_t position = 0;
    std::uint32_t highWater = 0;
};

VylStream VylFileCallbacks(aurel::BinStream& file);
VylStream VylMemoryCallbacks(VylMemoryStream& record);

// What the library tells the caller about an image before it delivers the rows.
struct VylImageDesc {
    std::uint32_t width = 0;
    std::uint32_t height = 0;
};

// Image callbacks, in table order after a leading 0 word.
struct VylImageCallbacks {
    std::uint32_t reserved = 0;
    // Resizes the 16-byte aligned block in `slot` to the size; size 0 frees it and clears the slot.
    int (*allocate)(void** slot, std::uint32_t sizeLow, std::uint32_t sizeHigh);
    int (*createSurface)(void* user, const VylImageDesc& desc);
    int (*idle)();
    // Copies `width` pixels a row for `height` rows from `source` into the surface at (x, y).
    int (*storeRows)(void* user, const void* source, int x, int y, int width, int height, int unused,
                     int sourceStride);
    // Copies from the surface into `buffer`.
    int (*fetchRows)(void* user, void* buffer, int x, int y, int width, int height, int unused,
                     int bufferStride);
};

// The pixel layout a caller asks for.
struct VylPixelFormat {
    int values[7] = {};
};

// One load or save: set up by VylImageInit, released by VylImageFree. For a save the caller sets the
// width and height from the surface.
struct VylImageState {
    const VylImageCallbacks* callbacks = nullptr;
    void* user = nullptr;
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::uint32_t options = 0;
    void* rows = nullptr;  // the block of rows in transit, held through the allocate callback
};

// Starts the library once at program start, with its resource limits: no picture over 16384 pixels a
// side, a bounded pixel cache, and the program's one thread.
void VylLibInit();
// Ends it once at program end.
void VylLibExit();

// The format the stream's first bytes show, else the one the name's extension gives (a TGA file has no
// mark of its own), else kVylUnknown. Either may be null; the stream is left where it was.
int VylUtilGetFileFormat(const char* name, const VylStream* stream);
int VylImageInit(VylImageState& state, const VylImageCallbacks& callbacks, void* user);
void VylUtilSetFormat(VylPixelFormat& format, int a, int b, int c, int d, int e, int f, int g);
int VylImageLoad(int format, const VylStream& stream, VylImageState& state, std::uint32_t options,
                 const VylPixelFormat& pixels);
int VylImageSave(int format, const VylStream& stream, VylImageState& state, std::uint32_t options);
void VylImageFree(VylImageState& state);
int VylImageGetBpp(const VylImageDesc& desc);

}  // namespace kovra
