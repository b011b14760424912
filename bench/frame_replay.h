// The SDL and SDL_ttf calls of one frame, recorded with their arguments, and their
// replay on another renderer with nothing of the library in between: what the
// frame's drawing costs by itself, the floor of the library's own work.
#pragma once

#include <SDL.h>
#include <SDL_ttf.h>

#include <string>
#include <vector>

namespace zbench {

// One recorded call; which fields it uses depends on `op`. Surfaces, textures and
// fonts are numbered in the order the recording first met them.
struct DrawCall {
    enum class Op {
        SetColor,
        Clear,
        FillRect,
        DrawRect,
        DrawLine,
        DrawPoint,
        SetClip,
        Copy,
        Present,
        TextToSurface,
        SurfaceToTexture,
        DestroyTexture,
        FreeSurface,
        SizeText,
        FontHeight,
        WindowSize,
        OutputSize,
        MouseFocus,
        MouseState,
        TtfWasInit,
    };
    Op op = Op::Present;
    int values[4] = {0, 0, 0, 0};  // colour channels, line ends, a point
    bool has_rect = false;         // false for a null rectangle
    SDL_Rect rect{0, 0, 0, 0};     // the rectangle, or a copy's destination
    bool has_source = false;
    SDL_Rect source{0, 0, 0, 0};  // a copy's source
    int font = -1;
    int surface = -1;
    int texture = -1;
    std::string text;
};

// A font as it was opened; the replay opens a copy of its own.
struct FontKey {
    std::string file;
    int point_size = 0;
    int style = TTF_STYLE_NORMAL;
};

struct RecordedFrame {
    std::vector<DrawCall> calls;
    std::vector<FontKey> fonts;
    int surfaces = 0;
    int textures = 0;
    int skipped = 0;  // calls on objects made before the recording began: not replayable
};

// Records the interposed calls made between the two, arguments and all. A call made
// from inside another interposed call (SDL_ttf freeing its own surface) is not recorded.
void StartRecording();
RecordedFrame StopRecording();

// True when both hold the same calls with the same arguments, in the same order.
bool SameCalls(RecordedFrame const& a, RecordedFrame const& b);

// A recorded frame replayed on `renderer` with fonts of its own.
class FrameReplay {
public:
    FrameReplay(RecordedFrame frame, SDL_Renderer* renderer);
    ~FrameReplay();
    FrameReplay(FrameReplay const&) = delete;
    FrameReplay& operator=(FrameReplay const&) = delete;

    // Every call, in order.
    void Run();
    // The text rasterisation alone: each text rendered to a surface, the texture made
    // from it, and both released, without drawing them.
    void RunText();

    RecordedFrame const& frame() const { return frame_; }

private:
    void Do(DrawCall const& call);
    void ReleaseLeftovers();

    RecordedFrame frame_;
    SDL_Renderer* renderer_ = nullptr;
    std::vector<TTF_Font*> fonts_;
    std::vector<SDL_Surface*> surfaces_;
    std::vector<SDL_Texture*> textures_;
};

}  // namespace zbench
