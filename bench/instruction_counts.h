// Instruction counts under callgrind: this program runs itself again under valgrind,
// each measured stretch of frames becomes one dump, and each dump is split by whose
// code executed its instructions. Counts do not depend on the machine's load.
#pragma once

#include <functional>
#include <set>
#include <string>
#include <vector>

namespace zbench {

// Where the instructions of one measured stretch went, by the code that executed
// them; the parts from `library` to `other` add up to the total.
struct InstructionSplit {
    double total = 0.0;
    double library = 0.0;  // the dialog library's own functions and its sibling stand-ins
    double sdl = 0.0;      // libSDL2: the software renderer, texture uploads and blits
    double fonts = 0.0;    // SDL_ttf, FreeType, HarfBuzz and the libraries they load
    double runtime = 0.0;  // the C and C++ runtime, whoever called it: allocation, copies
    double harness = 0.0;  // this program: frame set-up, the call recorder's forwarding
    double other = 0.0;
    // Counted again apart, with all they ran: TTF_RenderUTF8_Blended and
    // SDL_CreateTextureFromSurface, the text's rasterisation and its texture.
    double text = 0.0;
    // SDL and SDL_ttf entry points that library code called without passing the
    // recorder, so a replay of its recording lacks them.
    std::set<std::string> unrecorded;
};

// Draws `frames` frames as one measured stretch. Outside callgrind it only draws.
void MeasureStretch(std::function<void()> const& draw, int frames);

// Runs this program again under callgrind with `arguments` and returns the split of
// each stretch that the run measured, in order. Prints why and returns nothing when
// valgrind cannot run it.
std::vector<InstructionSplit> RunUnderCallgrind(std::string const& arguments);

// The split of one callgrind dump, `program` being the path of this program.
InstructionSplit ReadCallgrindDump(std::string const& path, std::string const& program);

}  // namespace zbench
