// Reference pictures: the render stack they were drawn with, loading, comparing, and
// the actual frame and difference picture written when a comparison fails.
#include "support/reference_frame.h"

#include <SDL_image.h>
#include <SDL_ttf.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

namespace ztest {

namespace fs = std::filesystem;

namespace {

bool Recording() {
    char const* value = std::getenv("ZORVANE_RECORD_FRAMES");
    return value != nullptr && std::string(value) == "1";
}

// A 64-bit FNV-1a checksum of a file's bytes, "missing" for a file that cannot be read.
std::string Checksum(fs::path const& file) {
    std::ifstream in(file, std::ios::binary);
    std::uint64_t hash = 14695981039346656037ull;
    for (std::istreambuf_iterator<char> it(in), end; it != end; ++it) {
        hash = (hash ^ static_cast<unsigned char>(*it)) * 1099511628211ull;
    }
    std::ostringstream text;
    text << std::hex << hash;
    return in ? text.str() : "missing";
}

// What the pictures depend on, one "name value" line each.
std::string RenderStack() {
    if (TTF_WasInit() == 0) {
        TTF_Init();  // FreeType's version is known once SDL_ttf runs
    }
    SDL_version sdl;
    SDL_GetVersion(&sdl);
    SDL_version const ttf = *TTF_Linked_Version();
    int ft[3] = {}, hb[3] = {};
    TTF_GetFreeTypeVersion(&ft[0], &ft[1], &ft[2]);
    TTF_GetHarfBuzzVersion(&hb[0], &hb[1], &hb[2]);
    std::ostringstream stack;
    for (char const* font : {"IBMPlexSans-Regular.ttf", "IBMPlexSans-SemiBold.ttf"}) {
        stack << font << " " << Checksum(fs::path("data/ttf") / font) << "\n";
    }
    stack << "SDL " << +sdl.major << "." << +sdl.minor << "." << +sdl.patch << "\nSDL_ttf "
          << +ttf.major << "." << +ttf.minor << "." << +ttf.patch << "\nFreeType " << ft[0] << "."
          << ft[1] << "." << ft[2] << "\nHarfBuzz " << hb[0] << "." << hb[1] << "." << hb[2]
          << "\n";
    return stack.str();
}

fs::path InReferences(std::string const& name) {
    return fs::u8path(ZORVANE_FRAME_REFERENCES) / name;
}

// Saves the frame as a 24-bit PNG.
void SavePicture(Frame const& frame, fs::path const& file) {
    std::error_code ignored;
    fs::create_directories(file.parent_path(), ignored);
    SDL_Surface* view = SDL_CreateRGBSurfaceWithFormatFrom(
        const_cast<std::uint32_t*>(frame.pixels.data()), frame.width, frame.height, 32,
        frame.width * 4, SDL_PIXELFORMAT_ARGB8888);
    SDL_Surface* rgb = SDL_ConvertSurfaceFormat(view, SDL_PIXELFORMAT_RGB24, 0);
    if (rgb == nullptr || IMG_SavePNG(rgb, file.u8string().c_str()) != 0) {
        ADD_FAILURE() << "cannot write " << file << ": " << SDL_GetError();
    }
    SDL_FreeSurface(rgb);
    SDL_FreeSurface(view);
}

Frame LoadPicture(fs::path const& file) {
    SDL_Surface* loaded = IMG_Load(file.u8string().c_str());
    SDL_Surface* argb = SDL_ConvertSurfaceFormat(loaded, SDL_PIXELFORMAT_ARGB8888, 0);
    Frame picture;
    if (argb != nullptr) {  // 32-bit rows are packed: pitch is four times the width
        auto const* pixels = static_cast<std::uint32_t const*>(argb->pixels);
        picture = {argb->w, argb->h, {pixels, pixels + std::size_t(argb->w) * argb->h}};
    }
    SDL_FreeSurface(argb);
    SDL_FreeSurface(loaded);
    return picture;
}

}  // namespace

std::string ReferenceFramesUnavailable() {
    std::ifstream in(InReferences("render_stack.txt"));
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
    fs::path const reference = InReferences(name + ".png");
    fs::path const actual = fs::u8path(ZORVANE_FRAME_MISMATCHES) / (name + ".actual.png");
    fs::path const diff_file = fs::u8path(ZORVANE_FRAME_MISMATCHES) / (name + ".diff.png");
    if (frame.empty()) {
        return testing::AssertionFailure() << name << ": no frame was presented";
    }
    if (Recording()) {
        std::ofstream(InReferences("render_stack.txt")) << RenderStack();
        SavePicture(frame, reference);
        return testing::AssertionSuccess();
    }
    Frame const want = LoadPicture(reference);
    if (want.width != frame.width || want.height != frame.height) {
        SavePicture(frame, actual);
        return testing::AssertionFailure()
               << name << ": the frame is " << frame.width << "x" << frame.height << ", "
               << reference << " is " << want.width << "x" << want.height << "; frame: " << actual;
    }
    // The difference picture: the reference dimmed to grey, differing pixels in magenta.
    Frame diff = want;
    long long differing = 0;
    SDL_Point first{-1, -1};
    for (int y = 0; y < frame.height; ++y) {
        for (int x = 0; x < frame.width; ++x) {
            std::size_t const i = std::size_t(y) * frame.width + x;
            std::uint32_t const grey = ((want.pixels[i] >> 8) & 0xFF) / 3;
            diff.pixels[i] = 0xFF000000u | grey << 16 | grey << 8 | grey;
            SDL_Point const at{x, y};
            bool const skipped = std::any_of(ignored.begin(), ignored.end(),
                                             [&](SDL_Rect r) { return SDL_PointInRect(&at, &r); });
            if (((frame.pixels[i] ^ want.pixels[i]) & 0xFFFFFF) != 0 && !skipped) {
                diff.pixels[i] = 0xFFFF00FFu;
                first = differing++ == 0 ? at : first;
            }
        }
    }
    if (differing == 0) {
        return testing::AssertionSuccess();
    }
    SavePicture(frame, actual);
    SavePicture(diff, diff_file);
    return testing::AssertionFailure()
           << name << ": " << differing << " pixels differ from " << reference << "; the first at ("
           << first.x << ", " << first.y << "): got " << frame.ColorAt(first.x, first.y) << " want "
           << want.ColorAt(first.x, first.y) << "\n  frame: " << actual
           << "\n  differences: " << diff_file;
}

}  // namespace ztest
