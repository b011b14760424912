// The settings dialog: the navigation table, the entry point, the frame loop with
// its event handling, and the dispatch to the panels.
//
// [SECTION] Navigation and layout: BuildSettingsNavItems, FindInitialSettingsPanel,
//           BuildSettingsDialogButtons
// [SECTION] Entry point: ShowSettingsDialog
// [SECTION] Loop: RunSettingsDialogLoop and its steps
// [SECTION] Right panel: DrawRightPanel
#include "frame/look.h"
#include "frame/modal_window.h"
#include "settings/settings_internal.h"

#include <utility>

namespace zorvane::frontend::gui {

namespace {

constexpr int kNavPanelRight = 224;  // the navigation panel ends left of this column
constexpr int kBottomBarTop = 436;
constexpr Uint32 kSettingsDelayMs = 12;

using ApplyCallback = std::function<void(SettingsDialogValues const&)>;

// The input of one turn: the polled pointer and the pending click, if any.
struct SettingsFrameInput {
    int mouse_x = -1;
    int mouse_y = -1;
    bool left_down = false;
    bool click_pending = false;
    int click_x = 0;
    int click_y = 0;
};

SettingsFrameInput PollSettingsPointer(SDL_Window* window) {
    SettingsFrameInput input;
    if (SDL_GetMouseFocus() == window) {
        Uint32 const buttons = SDL_GetMouseState(&input.mouse_x, &input.mouse_y);
        input.left_down = (buttons & SDL_BUTTON_LMASK) != 0;
    }
    return input;
}

// A left release: the buttons first, then the navigation rows; anything else stays
// pending for the right panel. Returns true when the dialog closes.
bool HandleSettingsClick(SettingsDialogSession* session, int x, int y,
                         ApplyCallback const& on_apply, SettingsFrameInput* input) {
    input->click_pending = true;
    input->click_x = x;
    input->click_y = y;
    if (IsInRect(x, y, session->cancel_button)) {
        return true;
    }
    if (IsInRect(x, y, session->apply_button)) {
        if (on_apply) {
            on_apply(session->values);
        }
        input->click_pending = false;
        return false;
    }
    std::vector<NavItem> const& items = *session->nav_items;
    for (int i = 0; i < static_cast<int>(items.size()); ++i) {
        if (items[i].kind == 1 && IsInRect(x, y, {0, 10 + 30 * i, kNavPanelRight, 30})) {
            session->active_panel = items[i].panel_id;
            input->click_pending = false;
            return false;
        }
    }
    return false;
}

// One event; events of other windows are dropped. Returns true when the dialog closes.
bool HandleSettingsEvent(SettingsDialogSession* session, SDL_Event const& event, Uint32 window_id,
                         ApplyCallback const& on_apply, SettingsFrameInput* input) {
    switch (event.type) {
        case SDL_QUIT:
            return true;
        case SDL_WINDOWEVENT:
            return event.window.windowID == window_id &&
                   event.window.event == SDL_WINDOWEVENT_CLOSE;
        case SDL_KEYDOWN:
            return event.key.windowID == window_id && event.key.keysym.sym == SDLK_ESCAPE;
        case SDL_MOUSEBUTTONUP:
            if (event.button.button == SDL_BUTTON_LEFT && event.button.windowID == window_id) {
                return HandleSettingsClick(session, event.button.x, event.button.y, on_apply,
                                           input);
            }
            return false;
        default:
            return false;
    }
}

RightPanelContext BuildRightPanelContext(SettingsDialogSession const& session,
                                         SettingsFrameInput const& input) {
    RightPanelContext context;
    context.renderer = session.renderer;
    context.title_font = session.title_font;
    context.body_font = session.body_font;
    context.active_panel = session.active_panel;
    context.mouse_x = input.mouse_x;
    context.mouse_y = input.mouse_y;
    context.clicked =
        input.click_pending && input.click_x > kNavPanelRight && input.click_y < kBottomBarTop;
    context.mouse_down =
        input.left_down && input.mouse_x > kNavPanelRight && input.mouse_y < kBottomBarTop;
    context.values = &session.values;
    return context;
}

// Draws the whole frame; the right panel's hit is applied in the middle of it, and a
// browse hit runs the font picker there before the bottom bar is drawn.
void RenderSettingsFrame(SettingsDialogSession* session, SettingsFrameInput const& input) {
    SDL_Renderer* renderer = session->renderer;
    SetDrawColor(renderer, kColPanelWindowBg);
    SDL_RenderClear(renderer);
    DrawLeftPanel(renderer, session->title_font, session->body_font, *session->nav_items,
                  session->active_panel, input.mouse_x, input.mouse_y);
    FillRect(renderer, {225, 0, 595, 436}, kColPanelWindowBg);
    RightPanelHitResult const hit = DrawRightPanel(BuildRightPanelContext(*session, input));
    ApplySettingsHit(&session->values, hit);
    HandleSettingsFontPickerHit(&session->values, session->window, hit);
    DrawBottomBar(renderer, session->body_font, session->cancel_button, session->apply_button,
                  input.mouse_x, input.mouse_y);
}

}  // namespace

// [SECTION] Navigation and layout

std::vector<NavItem> BuildSettingsNavItems() {
    return {
        {0, "Display", -1},      {1, "Font Mode", 0},      {1, "Target FPS", 1},
        {1, "Renderer", 2},      {1, "Screenshots", 7},    {0, "Input", -1},
        {1, "Mouse Capture", 6}, {0, "Performance", -1},   {1, "CPU Speed", 3},
        {0, "Verbosity", -1},    {1, "Logger Options", 4}, {0, "Audio", -1},
        {1, "HDD Sounds", 5},
    };
}

int FindInitialSettingsPanel(std::vector<NavItem> const& items) {
    for (NavItem const& item : items) {
        if (item.kind == 1) {
            return item.panel_id;
        }
    }
    return -1;
}

SettingsDialogButtons BuildSettingsDialogButtons() {
    return {{618, 449, 90, 30}, {718, 449, 90, 30}};
}

// [SECTION] Entry point

void ShowSettingsDialog(SDL_Window* parent, float /*scale*/,
                        SettingsDialogValues const& initial_values, ApplyCallback on_apply) {
    ModalWindowBundle bundle = CreateModalWindowBundle(parent, "Settings", 60, 50, 820, 492,
                                                       SDL_WINDOW_HIDDEN, kSoftwareOnly);
    if (!bundle.window || !bundle.renderer) {
        return;
    }
    // Declared after the bundle, so they close first: body, title, renderer, window.
    SdlUiFontHandle const title_font = OpenSdlUiFontHandle(15, true, kSemiBold);
    SdlUiFontHandle const body_font = OpenSdlUiFontHandle(15, false, kSemiBold);
    if (!title_font || !body_font) {
        SDL_ShowSimpleMessageBox(SDL_MESSAGEBOX_ERROR, "Settings", "Failed to load font.", parent);
        return;
    }
    std::vector<NavItem> const nav_items = BuildSettingsNavItems();
    SettingsDialogButtons const buttons = BuildSettingsDialogButtons();

    SettingsDialogSession session;
    session.window = bundle.window.get();
    session.renderer = bundle.renderer.get();
    session.title_font = title_font.get();
    session.body_font = body_font.get();
    session.nav_items = &nav_items;
    session.cancel_button = buttons.cancel;
    session.apply_button = buttons.apply;
    session.values = initial_values;
    session.active_panel = FindInitialSettingsPanel(nav_items);
    session.shown = false;

    RunSettingsDialogLoop(&session, on_apply);
    RestoreModalParentFocus(parent);
}

// [SECTION] Loop

void RunSettingsDialogLoop(SettingsDialogSession* session, ApplyCallback const& on_apply) {
    if (session == nullptr || session->window == nullptr || session->renderer == nullptr ||
        session->nav_items == nullptr) {
        return;
    }
    while (true) {
        PumpModalDialogHeartbeat();
        SettingsFrameInput input = PollSettingsPointer(session->window);
        Uint32 const window_id = SDL_GetWindowID(session->window);

        // Events first: a closing event ends the turn before anything is drawn.
        SDL_Event event;
        while (SDL_PollEvent(&event) != 0) {
            if (HandleSettingsEvent(session, event, window_id, on_apply, &input)) {
                return;
            }
        }

        RenderSettingsFrame(session, input);
        SDL_RenderPresent(session->renderer);
        if (!session->shown) {
            SDL_ShowWindow(session->window);
            SDL_RaiseWindow(session->window);
            SDL_SetWindowInputFocus(session->window);
            session->shown = true;
        }
        SDL_Delay(kSettingsDelayMs);
    }
}

// [SECTION] Right panel

RightPanelHitResult DrawRightPanel(RightPanelContext const& context) {
    RightPanelHitResult hit;
    if (context.active_panel < 0) {
        DrawText(context.renderer, context.body_font, "Select an item on the left to see options.",
                 kSettingsContentX, 80, kColTextDim);
        return hit;
    }
    if (DrawSettingsDisplayPanel(context, &hit)) {
        return hit;
    }
    if (DrawSettingsRuntimePanel(context, &hit)) {
        return hit;
    }
    DrawText(context.renderer, context.body_font, "No options for this item.", kSettingsContentX,
             60, kColTextDim);
    return hit;
}

}  // namespace zorvane::frontend::gui
