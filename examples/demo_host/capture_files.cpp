// Capture writers of the demo host: PNG with a chosen zlib level (SDL2_image has no
// such setting), JPEG through SDL2_image, and BMP indexed with optional RLE8, which
// SDL itself does not write.
#include "capture_files.h"

#include <SDL_image.h>
#include <png.h>

#include <cstdio>
#include <memory>
#include <unordered_map>
#include <vector>

namespace demo {

namespace {

namespace gui = zorvane::frontend::gui;

using SurfaceHandle = std::unique_ptr<SDL_Surface, decltype(&SDL_FreeSurface)>;
using FileHandle = std::unique_ptr<std::FILE, decltype(&std::fclose)>;

// libpng reports errors by longjmp, so this function keeps no object with a destructor.
bool WritePngRows(std::FILE* file, SDL_Surface const* rgb, int level) {
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png != nullptr ? png_create_info_struct(png) : nullptr;
    if (info == nullptr) {
        png_destroy_write_struct(&png, nullptr);
        return false;
    }
    if (setjmp(png_jmpbuf(png))) {
        png_destroy_write_struct(&png, &info);
        return false;
    }
    png_init_io(png, file);
    png_set_compression_level(png, level);
    png_set_IHDR(png, info, rgb->w, rgb->h, 8, PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_write_info(png, info);
    for (int y = 0; y < rgb->h; ++y) {
        png_write_row(png, static_cast<png_const_bytep>(rgb->pixels) + y * rgb->pitch);
    }
    png_write_end(png, nullptr);
    png_destroy_write_struct(&png, &info);
    return true;
}

bool WritePng(SDL_Surface* frame, std::string const& path, int level) {
    SurfaceHandle const rgb(SDL_ConvertSurfaceFormat(frame, SDL_PIXELFORMAT_RGB24, 0),
                            &SDL_FreeSurface);
    FileHandle const file(rgb ? std::fopen(path.c_str(), "wb") : nullptr, &std::fclose);
    if (!file) {
        return false;
    }
    bool const written = WritePngRows(file.get(), rgb.get(), level);
    return written && std::fflush(file.get()) == 0;
}

// The frame as palette indices, if it has at most 256 colours.
struct IndexedFrame {
    int w = 0;
    int h = 0;
    std::vector<Uint32> palette;  // 0xRRGGBB
    std::vector<Uint8> pixels;    // row by row, top to bottom
};

bool IndexFrame(SDL_Surface* frame, IndexedFrame& out) {
    SurfaceHandle const xrgb(SDL_ConvertSurfaceFormat(frame, SDL_PIXELFORMAT_RGB888, 0),
                             &SDL_FreeSurface);
    if (!xrgb) {
        return false;
    }
    out.w = xrgb->w;
    out.h = xrgb->h;
    std::unordered_map<Uint32, Uint8> index_of;
    for (int y = 0; y < out.h; ++y) {
        auto const* row = reinterpret_cast<Uint32 const*>(static_cast<Uint8 const*>(xrgb->pixels) +
                                                          y * xrgb->pitch);
        for (int x = 0; x < out.w; ++x) {
            Uint32 const colour = row[x] & 0xFFFFFFu;
            auto found = index_of.find(colour);
            if (found == index_of.end()) {
                if (out.palette.size() == 256) {
                    return false;
                }
                found = index_of.emplace(colour, static_cast<Uint8>(out.palette.size())).first;
                out.palette.push_back(colour);
            }
            out.pixels.push_back(found->second);
        }
    }
    return true;
}

void Put(std::vector<Uint8>& bytes, Uint32 value, int size) {
    for (int i = 0; i < size; ++i) {
        bytes.push_back(static_cast<Uint8>(value >> (8 * i)));
    }
}

// Rows bottom-up; each run is a count and an index, a row ends with 0 0 and the
// image with 0 1.
std::vector<Uint8> EncodeRle8(IndexedFrame const& image) {
    std::vector<Uint8> data;
    for (int y = image.h - 1; y >= 0; --y) {
        Uint8 const* row = &image.pixels[static_cast<std::size_t>(y) * image.w];
        for (int x = 0; x < image.w;) {
            int run = 1;
            while (x + run < image.w && run < 255 && row[x + run] == row[x]) {
                ++run;
            }
            data.push_back(static_cast<Uint8>(run));
            data.push_back(row[x]);
            x += run;
        }
        data.push_back(0);
        data.push_back(y == 0 ? 1 : 0);
    }
    return data;
}

std::vector<Uint8> PadRows(IndexedFrame const& image) {
    std::size_t const stride = (static_cast<std::size_t>(image.w) + 3) & ~std::size_t{3};
    std::vector<Uint8> data;
    for (int y = image.h - 1; y >= 0; --y) {
        auto const row = image.pixels.begin() + static_cast<std::ptrdiff_t>(y) * image.w;
        data.insert(data.end(), row, row + image.w);
        data.resize(data.size() + stride - image.w, 0);
    }
    return data;
}

bool WriteIndexedBmp(IndexedFrame const& image, std::string const& path, bool rle) {
    std::vector<Uint8> const data = rle ? EncodeRle8(image) : PadRows(image);
    auto const colours = static_cast<Uint32>(image.palette.size());
    Uint32 const offset = 14 + 40 + 4 * colours;
    std::vector<Uint8> bytes = {'B', 'M'};
    Put(bytes, offset + static_cast<Uint32>(data.size()), 4);
    Put(bytes, 0, 4);
    Put(bytes, offset, 4);
    for (Uint32 field : {40u, static_cast<Uint32>(image.w), static_cast<Uint32>(image.h)}) {
        Put(bytes, field, 4);
    }
    Put(bytes, 1, 2);  // planes
    Put(bytes, 8, 2);  // bits per pixel
    for (Uint32 field :
         {rle ? 1u : 0u, static_cast<Uint32>(data.size()), 2835u, 2835u, colours, 0u}) {
        Put(bytes, field, 4);
    }
    for (Uint32 colour : image.palette) {
        Put(bytes, colour, 4);  // blue, green, red, reserved
    }
    bytes.insert(bytes.end(), data.begin(), data.end());
    FileHandle const file(std::fopen(path.c_str(), "wb"), &std::fclose);
    return file && std::fwrite(bytes.data(), 1, bytes.size(), file.get()) == bytes.size() &&
           std::fflush(file.get()) == 0;
}

bool WriteBmp(SDL_Surface* frame, std::string const& path, bool rle, std::string& how) {
    IndexedFrame image;
    if (!IndexFrame(frame, image)) {
        how = "BMP, true colour: the frame has more than 256 colours, so no RLE";
        return SDL_SaveBMP(frame, path.c_str()) == 0;
    }
    how = "BMP, 8-bit indexed (" + std::to_string(image.palette.size()) + " colours), " +
          (rle ? "RLE8" : "uncompressed");
    return WriteIndexedBmp(image, path, rle);
}

}  // namespace

bool WriteCapture(SDL_Surface* frame, std::string const& path,
                  gui::ScreenshotSaveDialogResult const& choice, std::string& how) {
    bool written = false;
    switch (choice.format) {
        case gui::ScreenshotSaveFormat::Jpeg:
            how = "JPEG at quality " + std::to_string(choice.jpeg_quality);
            written = IMG_SaveJPG(frame, path.c_str(), choice.jpeg_quality) == 0;
            break;
        case gui::ScreenshotSaveFormat::Bmp:
            written = WriteBmp(frame, path, choice.bmp_rle, how);
            break;
        case gui::ScreenshotSaveFormat::Png:
        default:
            how = "PNG at compression level " + std::to_string(choice.png_compression);
            written = WritePng(frame, path, choice.png_compression);
            break;
    }
    if (!written) {
        how += ": cannot write " + path;
    }
    return written;
}

}  // namespace demo
