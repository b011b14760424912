// Reference pictures: the render stack they were drawn with, loading, comparing, and
// the actual frame and difference picture written when a comparison fails.
#include "support/reference_frame.h"

#include <SDL_image.h>
#include <SDL_ttf.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <sstream>

namespace ztest {

namespace fs = std::filesystem;

namespace {

using SurfaceHandle = std::unique_ptr<SDL_Surface, void (*)(SDL_Surface*)>;

bool Recording() {
    char const* value = std::getenv("ZORVANE_RECORD_FRAMES");
    return value != nullptr && std::string(value) == "1";
}

// A 64-bit FNV-1a checksum of a file's bytes, "missing" for a file that cannot be read.
std::string Checksum(fs::path const& file) {
    std::ifstream in(file, std::ios::binary);
    if (!in) {
        return "missing";
    }
    std::uint64_t hash = 14695981039346656037ull;
    for (std::istreambuf_iterator<char> it(in), end; it != end; ++it) {
        hash = (hash ^ static_cast<unsigned char>(*it)) * 1099511628211ull;
    }
    std::ostringstream text;
    text << std::hex << hash;
    return text.str();
}

// What the pictures depend on, one "name value" line each.
std::string RenderStack() {
    std::ostringstream stack;
    for (char const* font : {"IBMPlexSans-Regular.ttf", "IBMPlexSans-SemiBold.ttf"}) {
        stack << font << " " << Checksum(fs::path("data/ttf") / font) << "\n";
    }
    SDL_version sdl;
    SDL_GetVersion(&sdl);
    SDL_version const* ttf = TTF_Linked_Version();
    int ft[3] = {}, hb[3] = {};
    if (TTF_WasInit() == 0) {
        TTF_Init();  // FreeType's version is known once SDL_ttf runs
    }
    TTF_GetFreeTypeVersion(&ft[0], &ft[1], &ft[2]);
    TTF_GetHarfBuzzVersion(&hb[0], &hb[1], &hb[2]);
    stack << "SDL " << int(sdl.major) << "." << int(sdl.minor) << "." << int(sdl.patch) << "\n"
          << "SDL_ttf " << int(ttf->major) << "." << int(ttf->minor) << "." << int(ttf->patch)
          << "\n"
          << "FreeType " << ft[0] << "." << ft[1] << "." << ft[2] << "\n"
          << "HarfBuzz " << hb[0] << "." << hb[1] << "." << hb[2] << "\n";
    return stack.str();
}

fs::path StackFile() {
    return fs::u8path(ZORVANE_FRAME_REFERENCES) / "render_stack.txt";
}

// The frame as a 24-bit surface that shares its pixels.
SurfaceHandle SurfaceOf(Frame const& frame) {
    SDL_Surface* view = SDL_CreateRGBSurfaceWithFormatFrom(
        const_cast<std::uint32_t*>(frame.pixels.data()), frame.width, frame.height, 32,
        frame.width * 4, SDL_PIXELFORMAT_ARGB8888);
    SurfaceHandle rgb(
        view != nullptr ? SDL_ConvertSurfaceFormat(view, SDL_PIXELFORMAT_RGB24, 0) : nullptr,
        SDL_FreeSurface);
    SDL_FreeSurface(view);
    return rgb;
}

bool SavePicture(Frame const& frame, fs::path const& file) {
    std::error_code ignored;
    fs::create_directories(file.parent_path(), ignored);
    SurfaceHandle const surface = SurfaceOf(frame);
    return surface != nullptr && IMG_SavePNG(surface.get(), file.u8string().c_str()) == 0;
}

Frame LoadPicture(fs::path const& file) {
    SurfaceHandle const loaded(IMG_Load(file.u8string().c_str()), SDL_FreeSurface);
    SurfaceHandle const argb(
        loaded != nullptr ? SDL_ConvertSurfaceFormat(loaded.get(), SDL_PIXELFORMAT_ARGB8888, 0)
                          : nullptr,
        SDL_FreeSurface);
    Frame picture;
    if (argb != nullptr) {
        picture.width = argb->w;
        picture.height = argb->h;
        picture.pixels.resize(static_cast<std::size_t>(argb->w) * argb->h);
        for (int y = 0; y < argb->h; ++y) {
            std::memcpy(&picture.pixels[static_cast<std::size_t>(y) * argb->w],
                        static_cast<char const*>(argb->pixels) + y * argb->pitch,
                        static_cast<std::size_t>(argb->w) * 4);
        }
    }
    return picture;
}

bool Ignored(std::vector<SDL_Rect> const& ignored, int x, int y) {
    SDL_Point const point{x, y};
    for (SDL_Rect const& rect : ignored) {
        if (SDL_PointInRect(&point, &rect)) {
            return true;
        }
    }
    return false;
}

std::string ColorText(std::uint32_t pixel) {
    return std::to_string((pixel >> 16) & 0xFF) + "," + std::to_string((pixel >> 8) & 0xFF) + "," +
           std::to_string(pixel & 0xFF);
}

}  // namespace

std::string ReferenceFramesUnavailable() {
    std::ifstream in(StackFile());
    std::string const recorded((std::istreambuf_iterator<char>(in)),
                               std::istreambuf_iterator<char>());
    std::string const here = RenderStack();
    if (Recording() || recorded == here) {
        return {};
    }
    return "the reference frames were drawn with\n" + recorded + "and this machine has\n" + here +
           "(bash scripts/setup.sh fetches the fonts; other library versions draw other pixels)";
}

testing::AssertionResult MatchesReference(Frame const& frame, std::string const& name,
                                          std::vector<SDL_Rect> const& ignored) {
    fs::path const reference = fs::u8path(ZORVANE_FRAME_REFERENCES) / (name + ".png");
    if (frame.empty()) {
        return testing::AssertionFailure() << name << ": no frame was presented";
    }
    if (Recording()) {
        std::ofstream(StackFile()) << RenderStack();
        return SavePicture(frame, reference)
                   ? testing::AssertionSuccess()
                   : testing::AssertionFailure() << "cannot write " << reference;
    }
    Frame const want = LoadPicture(reference);
    fs::path const out = fs::u8path(ZORVANE_FRAME_MISMATCHES);
    fs::path const actual = out / (name + ".actual.png");
    if (want.width != frame.width || want.height != frame.height) {
        SavePicture(frame, actual);
        return testing::AssertionFailure()
               << name << ": the frame is " << frame.width << "x" << frame.height
               << ", its reference " << want.width << "x" << want.height << " (" << reference
               << "); the frame is in " << actual;
    }
    // The difference picture: the reference dimmed to grey, differing pixels in magenta.
    Frame diff = want;
    long long differing = 0;
    int first_x = -1, first_y = -1;
    for (int y = 0; y < frame.height; ++y) {
        for (int x = 0; x < frame.width; ++x) {
            std::size_t const i = static_cast<std::size_t>(y) * frame.width + x;
            std::uint32_t const grey = ((want.pixels[i] >> 8) & 0xFF) / 3;
            diff.pixels[i] = 0xFF000000u | grey << 16 | grey << 8 | grey;
            if (((frame.pixels[i] ^ want.pixels[i]) & 0xFFFFFF) == 0 || Ignored(ignored, x, y)) {
                continue;
            }
            diff.pixels[i] = 0xFFFF00FFu;
            if (differing++ == 0) {
                first_x = x;
                first_y = y;
            }
        }
    }
    if (differing == 0) {
        return testing::AssertionSuccess();
    }
    fs::path const diff_file = out / (name + ".diff.png");
    SavePicture(frame, actual);
    SavePicture(diff, diff_file);
    std::size_t const first = static_cast<std::size_t>(first_y) * frame.width + first_x;
    return testing::AssertionFailure()
           << name << ": " << differing << " pixels differ from " << reference << "; the first at ("
           << first_x << ", " << first_y << "): got " << ColorText(frame.pixels[first]) << " want "
           << ColorText(want.pixels[first]) << "\n  frame: " << actual
           << "\n  differences: " << diff_file;
}

}  // namespace ztest
