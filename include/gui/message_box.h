// The general message dialog: a title, a wrapped message, a typed icon tile and a
// row of buttons. The host fills a Config, constructs the box and calls Show.
#pragma once

#include <SDL.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace zorvane::frontend::gui {

class SdlMessageBox {
public:
    // The kind of message; it chooses the icon's glyph and accent colour. Values
    // above 5 are shown like Info.
    enum class Type : std::uint8_t {
        Info = 0,
        Question = 1,
        Warning = 2,
        Error = 3,
        Critical = 4,
        Success = 5,
    };

    struct Button {
        int id = 0;                      // what Show returns for this button
        std::string label;               // UTF-8
        bool is_default = false;         // carried along; the box gives it no behaviour
        bool is_cancel = false;          // Escape chooses the first button that has it
        std::function<void()> on_click;  // may be empty; must not throw
    };

    struct Config {
        std::string title;    // window title and heading; "Message" when empty
        std::string message;  // UTF-8, may hold line feeds
        Type type = Type::Info;
        std::vector<Button> buttons;  // left to right; one "OK" button when empty
        int width = 0;                // window width, at least 320
        int height = 0;               // lowest window height, at least 140
        bool close_on_escape = true;  // whether Escape is looked at
    };

    // Takes the configuration over and fills in what is missing (see Config).
    explicit SdlMessageBox(Config config);

    // Runs the dialog over `parent` (may be null) and returns the chosen button's
    // id, or -1 when nothing was chosen or the dialog could not start. The box
    // always runs at scale 1; `scale` has no effect. May be called again.
    int Show(SDL_Window* parent, float scale) noexcept;

    Config const& config() const noexcept { return config_; }

private:
    Config config_;
};

}  // namespace zorvane::frontend::gui
