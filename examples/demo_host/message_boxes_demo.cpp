// The host's side of the message box: one box per type, each with the buttons a
// host would offer, and the host acting on the button chosen (-1: none).
#include "message_boxes_demo.h"

#include <cstdio>
#include <filesystem>

#include "gui/message_box.h"

namespace demo {

namespace {

using Type = gui::SdlMessageBox::Type;
using Button = gui::SdlMessageBox::Button;

struct Kind {
    Type type;
    char const* name;
    char const* title;
    void (*act)(Host& host, int answer);
};

std::string AtFrame(Host const& host) {
    return " (machine at frame " + std::to_string(host.frames) + ")";
}

void ActOnInfo(Host& host, int answer) {
    Tell(host, "info box closed with " + std::to_string(answer) + AtFrame(host));
}

void ActOnQuestion(Host& host, int answer) {
    if (answer == 1) {
        ResetMachine(host);
        Tell(host, "machine reset: frame counter and uptime start again");
    } else {
        Tell(host, "reset declined" + AtFrame(host));
    }
}

void ActOnWarning(Host& host, int answer) {
    if (answer == 1) {
        host.settings.cpu_mhz = 20.0;
        Tell(host, "emulated CPU slowed down to 20 MHz");
    } else {
        Tell(host, "low speed ignored; the CPU stays at its clock");
    }
}

void ActOnError(Host& host, int answer) {
    Tell(host, "error acknowledged with " + std::to_string(answer) + "; drive A: unchanged");
}

void ActOnCritical(Host& host, int answer) {
    if (answer == 1) {
        host.quit = true;
        Tell(host, "powering the machine off" + AtFrame(host));
    } else {
        Tell(host, "waiting; the machine keeps running" + AtFrame(host));
    }
}

void ActOnSuccess(Host& host, int answer) {
    if (answer != 1) {
        Tell(host, "success box closed with " + std::to_string(answer));
        return;
    }
    std::filesystem::path const folder = std::filesystem::absolute(
        host.capture_folder.empty() ? std::string(".") : host.capture_folder);
    std::string const url = "file://" + folder.lexically_normal().string();
    bool const opened = SDL_OpenURL(url.c_str()) == 0;
    Tell(host, (opened ? "opened " : "could not open ") + url);
}

Kind const kKinds[kMessageBoxKinds] = {
    {Type::Info, "info", "Machine running", ActOnInfo},
    {Type::Question, "question", "Reset the machine?", ActOnQuestion},
    {Type::Warning, "warning", "Low speed", ActOnWarning},
    {Type::Error, "error", "Floppy unreadable", ActOnError},
    {Type::Critical, "critical", "CPU halted", ActOnCritical},
    {Type::Success, "success", "Screenshot saved", ActOnSuccess},
};

std::string MessageFor(Host const& host, Type type) {
    char speed[128];
    switch (type) {
        case Type::Question:
            return "The emulated PC restarts from drive C: and its clock goes back to zero. "
                   "Anything unsaved in the guest is lost.";
        case Type::Warning:
            std::snprintf(speed, sizeof speed,
                          "The host cannot keep up with %.2f MHz.\nSlow the emulated CPU down "
                          "to 20 MHz?",
                          host.settings.cpu_mhz);
            return speed;
        case Type::Error:
            return "DRIVERS.IMA could not be read: it ends after 12 288 of 1 474 560 bytes. "
                   "Drive A: keeps its disk.";
        case Type::Critical:
            return "The guest executed HLT with interrupts disabled and will not wake up "
                   "again. Power the machine off?";
        case Type::Success:
            return (host.last_capture.empty() ? std::string("The capture") : host.last_capture) +
                   " was written. Show its folder?";
        case Type::Info:
        default:
            return "The emulated PC keeps running while this box is open: watch the clock, "
                   "the frame counter and the moving cell in the main window.";
    }
}

std::vector<Button> ButtonsFor(Type type) {
    switch (type) {
        case Type::Question:
            return {{1, "Reset", true, false, nullptr}, {0, "Cancel", false, true, nullptr}};
        case Type::Warning:
            return {{1, "Slow down", true, false, nullptr}, {0, "Ignore", false, true, nullptr}};
        case Type::Critical:
            return {{1, "Power off", false, false, nullptr}, {0, "Wait", true, true, nullptr}};
        case Type::Success:
            return {{1, "Show", false, false, nullptr}, {0, "OK", true, true, nullptr}};
        case Type::Info:
        case Type::Error:
        default:
            return {{1, "OK", true, true, nullptr}};
    }
}

}  // namespace

char const* MessageBoxKindName(int kind) {
    return kKinds[kind].name;
}

void AskMessageBox(Host& host, int kind) {
    Kind const& k = kKinds[kind];
    gui::SdlMessageBox::Config config;
    config.title = k.title;
    config.message = MessageFor(host, k.type);
    config.type = k.type;
    config.width = 460;
    config.buttons = ButtonsFor(k.type);
    int const answer = gui::SdlMessageBox(config).Show(host.window, 1.0f);
    k.act(host, answer);
}

}  // namespace demo
