// The demo host's machine and screen: a paced frame loop, an emulated clock, and a
// VGA-like text screen of 80 by 25 cells drawn in the 16 colours of that mode.
#include "host_machine.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ctime>

namespace demo {

namespace {

constexpr int kCellWidth = 9;
constexpr int kCellHeight = 16;
constexpr int kColumns = 80;
constexpr int kFontSize = 14;

constexpr SDL_Color kBlack{0, 0, 0, 255};
constexpr SDL_Color kBlue{0, 0, 170, 255};
constexpr SDL_Color kCyan{0, 170, 170, 255};
constexpr SDL_Color kGrey{170, 170, 170, 255};
constexpr SDL_Color kDarkGrey{85, 85, 85, 255};
constexpr SDL_Color kLightCyan{85, 255, 255, 255};
constexpr SDL_Color kYellow{255, 255, 85, 255};
constexpr SDL_Color kWhite{255, 255, 255, 255};

void FillCells(Host& host, int column, int row, int width, int height, SDL_Color color) {
    SDL_SetRenderDrawColor(host.renderer, color.r, color.g, color.b, color.a);
    SDL_Rect const rect{column * kCellWidth, row * kCellHeight, width * kCellWidth,
                        height * kCellHeight};
    SDL_RenderFillRect(host.renderer, &rect);
}

void ForgetLine(ScreenLine& line) {
    if (line.texture != nullptr) {
        SDL_DestroyTexture(line.texture);
    }
    line = ScreenLine{};
}

void ForgetScreenLines(Host& host) {
    for (auto& [cell, line] : host.screen_lines) {
        ForgetLine(line);
    }
    host.screen_lines.clear();
}

// Solid rendering keeps the text to its one colour, as on a real text screen; the
// frame then holds no more colours than the palette above.
void RasteriseLine(Host& host, ScreenLine& line, std::string const& text, SDL_Color color) {
    ForgetLine(line);
    line.text = text;
    line.color = color;
    SDL_Surface* surface = TTF_RenderUTF8_Solid(host.font, text.c_str(), color);
    if (surface == nullptr) {
        return;
    }
    line.texture = SDL_CreateTextureFromSurface(host.renderer, surface);
    line.width = surface->w;
    line.height = surface->h;
    SDL_FreeSurface(surface);
}

void Print(Host& host, int column, int row, std::string const& text, SDL_Color color) {
    if (host.font == nullptr || text.empty()) {
        return;
    }
    ScreenLine& line = host.screen_lines[row * kColumns + column];
    if (line.texture == nullptr || line.text != text || line.color.r != color.r ||
        line.color.g != color.g || line.color.b != color.b) {
        RasteriseLine(host, line, text, color);
    }
    if (line.texture != nullptr) {
        SDL_Rect const rect{column * kCellWidth, row * kCellHeight, line.width, line.height};
        SDL_RenderCopy(host.renderer, line.texture, nullptr, &rect);
    }
}

std::string WallClock() {
    std::time_t const now = std::time(nullptr);
    char text[16] = "";
    std::strftime(text, sizeof text, "%H:%M:%S", std::localtime(&now));
    return text;
}

std::string Uptime(double ms) {
    auto const tenths = static_cast<unsigned long long>(ms / 100.0);
    char text[32];
    std::snprintf(text, sizeof text, "%02llu:%02llu:%02llu.%llu", tenths / 36000, tenths / 600 % 60,
                  tenths / 10 % 60, tenths % 10);
    return text;
}

std::string OrNone(std::string const& text, char const* none) {
    return text.empty() ? none : text;
}

void DrawStatusRows(Host& host) {
    char line[160];
    std::snprintf(line, sizeof line, "Frame %-10llu Uptime %s   %d fps   %.2f MHz", host.frames,
                  Uptime(host.uptime_ms).c_str(), host.settings.fps, host.settings.cpu_mhz);
    Print(host, 1, 2, line, kWhite);
    // A lit cell that moves one place per frame: the machine visibly runs.
    FillCells(host, 1, 3, 64, 1, kDarkGrey);
    FillCells(host, 1 + static_cast<int>(host.frames % 64), 3, 1, 1, kLightCyan);

    Print(host, 1, 5, "Drive A:  " + OrNone(host.drive_a, "(empty)"), kGrey);
    Print(host, 1, 6,
          "Shader:   " + host.shader_path + "  (" + std::to_string(host.shader_values.size()) +
              " value(s) set)",
          kGrey);
    Print(host, 1, 7, "Captures: " + OrNone(host.capture_folder, "(working directory)"), kGrey);
    Print(host, 1, 8, "Font:     " + host.font_path, kGrey);
    Print(host, 1, 9,
          "Settings: font " + host.settings.font_mode + ", renderer " +
              host.settings.renderer_mode + ", applied " + std::to_string(host.settings_applies) +
              " time(s)",
          kGrey);
    bool const cursor_on = (host.frames / 20) % 2 == 0;
    Print(host, 1, 11, cursor_on ? "C:\\>_" : "C:\\>", kWhite);
}

void DrawScreen(Host& host) {
    SDL_SetRenderDrawColor(host.renderer, kBlue.r, kBlue.g, kBlue.b, kBlue.a);
    SDL_RenderClear(host.renderer);
    FillCells(host, 0, 0, kColumns, 1, kCyan);
    Print(host, 1, 0, "ZORVANE PC - demo host", kBlack);
    Print(host, kColumns - 9, 0, WallClock(), kBlack);
    DrawStatusRows(host);

    Print(host, 1, 14, "Keys", kYellow);
    for (std::size_t i = 0; i < host.key_lines.size(); ++i) {
        Print(host, 2, 15 + static_cast<int>(i), host.key_lines[i], kWhite);
    }
    FillCells(host, 0, 24, kColumns, 1, kGrey);
    Print(host, 1, 24, host.status, kBlack);
    SDL_RenderPresent(host.renderer);
}

TTF_Font* OpenFirstFont(std::string& path) {
    char const* const candidates[] = {"/usr/share/fonts/truetype/dejavu/DejaVuSansMono.ttf",
                                      "data/ttf/IBMPlexSans-Regular.ttf",
                                      "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf"};
    for (char const* candidate : candidates) {
        if (TTF_Font* font = TTF_OpenFont(candidate, kFontSize)) {
            path = candidate;
            return font;
        }
    }
    return nullptr;
}

}  // namespace

bool OpenHost(Host& host) {
    // The screen is drawn in software; presenting it straight to the window system
    // costs far less than going through an OpenGL texture, which on a machine
    // without a GPU is itself drawn in software.
    SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0");
    host.window =
        SDL_CreateWindow("Zorvane demo host", SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED,
                         kColumns * kCellWidth, 25 * kCellHeight, SDL_WINDOW_SHOWN);
    host.renderer = host.window != nullptr
                        ? SDL_CreateRenderer(host.window, -1, SDL_RENDERER_SOFTWARE)
                        : nullptr;
    host.font = OpenFirstFont(host.font_path);
    return host.renderer != nullptr;
}

void CloseHost(Host& host) {
    ForgetScreenLines(host);
    if (host.font != nullptr) {
        TTF_CloseFont(host.font);
    }
    if (host.renderer != nullptr) {
        SDL_DestroyRenderer(host.renderer);
    }
    if (host.window != nullptr) {
        SDL_DestroyWindow(host.window);
    }
    host = Host{};
}

bool UseHostFont(Host& host, std::string const& path) {
    TTF_Font* font = TTF_OpenFont(path.c_str(), kFontSize);
    if (font == nullptr) {
        return false;
    }
    ForgetScreenLines(host);
    if (host.font != nullptr) {
        TTF_CloseFont(host.font);
    }
    host.font = font;
    host.font_path = path;
    return true;
}

void RunMachine(Host& host) {
    double const period = 1000.0 / std::clamp(host.settings.fps, 1, 1000);
    double const now = static_cast<double>(SDL_GetTicks64());
    // On the first frame, or after a stall, the machine starts from now instead of
    // racing through the frames it missed.
    if (host.next_frame_ms < 0.0 || now - host.next_frame_ms > 250.0) {
        host.next_frame_ms = now;
    }
    bool advanced = false;
    while (host.next_frame_ms <= now) {
        ++host.frames;
        host.uptime_ms += period;
        host.next_frame_ms += period;
        advanced = true;
    }
    if (advanced) {
        DrawScreen(host);
    }
}

void SleepUntilNextFrame(Host const& host) {
    double const wait_ms = host.next_frame_ms - static_cast<double>(SDL_GetTicks64());
    if (wait_ms > 0.0) {
        SDL_Delay(static_cast<Uint32>(std::ceil(wait_ms)));
    }
}

void ResetMachine(Host& host) {
    host.frames = 0;
    host.uptime_ms = 0.0;
    host.next_frame_ms = -1.0;
}

void Tell(Host& host, std::string const& text) {
    std::printf("%s\n", text.c_str());
    std::fflush(stdout);
    host.status = text;
}

}  // namespace demo
