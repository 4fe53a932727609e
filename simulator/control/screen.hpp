// What a person sees of the home screen, as one value.
#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Optional parts are null in the JSON form.
namespace nlohmann {
template <class T>
struct adl_serializer<std::optional<T>> {
  static void to_json(json& target, const std::optional<T>& value) {
    if (value) target = *value;
    else target = nullptr;
  }
  static void from_json(const json& source, std::optional<T>& value) {
    if (source.is_null()) value.reset();
    else value = source.get<T>();
  }
};
}  // namespace nlohmann

namespace sim {

/// A rectangle in points.
struct Frame {
  double x = 0, y = 0, width = 0, height = 0;
  bool operator==(const Frame&) const = default;
};
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(Frame, x, y, width, height)

/// A colour; each part lies between 0 and 1, and an alpha of 0 is clear.
struct Color {
  double red = 0, green = 0, blue = 0, alpha = 1;
  bool operator==(const Color&) const = default;
};
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(Color, red, green, blue, alpha)

/// An icon on the home screen.
struct IconOnScreen {
  std::string id;     ///< bundle identifier; empty for a bookmark
  std::string kind;   ///< "application", "downloading" or "bookmark"
  std::string label;  ///< the label's text, seen or not; empty without a label
  bool labelHidden = false;
  std::string badge;        ///< empty without a badge
  std::string spoken;       ///< what is read out to a person who cannot see it
  Frame frame;              ///< on the screen; beside it on a page that is not shown
  std::optional<int> page;  ///< counted from 1; none in the dock
};
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(IconOnScreen, id, kind, label, labelHidden, badge, spoken, frame, page)

/// An entry of the platform's quick-action list.
struct QuickAction {
  std::string title;
  std::string subtitle;
  std::string image;  ///< "" without a picture, else "PATH" with " (template)" when tinted, or "PNG of N bytes"
};
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(QuickAction, title, subtitle, image)

struct QuickActionList {
  std::string id;  ///< the icon's bundle identifier
  std::vector<QuickAction> entries;
};
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(QuickActionList, id, entries)

struct ButtonOnScreen {
  std::string title;
  std::string style;  ///< "default", "cancel" or "destructive"
};
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(ButtonOnScreen, title, style)

struct TextFieldOnScreen {
  std::string text;
  std::string placeholder;
  std::string keyboard;     ///< "default" or "number pad"
  std::string clearButton;  ///< "never" or "always"
  std::string returnKey;    ///< "default" or "done"
  std::string delegate;     ///< the class of the object that follows the editing; empty without one
};
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(TextFieldOnScreen, text, placeholder, keyboard, clearButton, returnKey, delegate)

/// Where a tablet shows a sheet.
struct Popover {
  std::string sourceView;  ///< the view's class
  bool sourceIsRootView = false;
  Frame sourceRect;
  std::uint64_t arrowDirections = 0;
};
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(Popover, sourceView, sourceIsRootView, sourceRect, arrowDirections)

/// A sheet or an alert.
struct AlertOnScreen {
  std::string style;  ///< "action sheet" or "alert"
  std::optional<std::string> title;
  std::optional<std::string> message;
  std::vector<ButtonOnScreen> buttons;  ///< those that are shown, in the order they were added
  std::vector<TextFieldOnScreen> textFields;
  std::optional<Popover> popover;  ///< on a tablet, for action sheets

  /// The buttons' titles, in order.
  std::vector<std::string> titles() const {
    std::vector<std::string> all;
    all.reserve(buttons.size());
    for (const ButtonOnScreen& button : buttons) all.push_back(button.title);
    return all;
  }
};
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(AlertOnScreen, style, title, message, buttons, textFields, popover)

/// A view, with what can be seen of it.
struct ViewOnScreen {
  std::string className;
  std::string identifier;               ///< what it stands for, such as an application; empty for nothing in particular
  Frame frame;                          ///< in what it stands in
  double scrolledX = 0, scrolledY = 0;  ///< the point of its own coordinates that its upper left corner shows
  bool hidden = false;
  bool userInteraction = true;
  double alpha = 1;
  double cornerRadius = 0;
  std::optional<Color> background;
  std::string text;                ///< of a label or a text field
  std::optional<Color> textColor;  ///< of a label
  double fontSize = 0;             ///< of a label
  long textAlignment = 0;          ///< of a label: 1 is centred
  std::string image;               ///< "PATH" with " (template)" when tinted, or "PNG of N bytes"; empty without one
  bool focused = false;            ///< of a text field: what is typed goes there
  bool spinning = false;           ///< of an activity indicator
  long spinnerStyle = 0;           ///< of an activity indicator
  std::vector<ViewOnScreen> subviews;  ///< back to front
};
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(ViewOnScreen, className, identifier, frame, scrolledX, scrolledY, hidden,
                                   userInteraction, alpha, cornerRadius, background, text, textColor, fontSize,
                                   textAlignment, image, focused, spinning, spinnerStyle, subviews)

/// A sheet or an alert on its way.
struct TransitionOnScreen {
  std::string kind;           ///< "presentation" or "dismissal"
  double start = 0, end = 0;  ///< in seconds, as `Screen::passed` counts
};
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(TransitionOnScreen, kind, start, end)

/// A visible window.
struct WindowOnScreen {
  std::string name;  ///< what a person calls what it shows: "the home screen", "the sheet "Notes""
  double level = 0;
  bool key = false;
  Frame frame;
  bool userInteraction = true;
  double alpha = 1;
  std::optional<Color> background;
  std::vector<ViewOnScreen> views;  ///< subviews of the window itself, root view included, back to front
  std::optional<AlertOnScreen> alert;
  std::optional<TransitionOnScreen> transition;  ///< the alert's; none while it stands
};
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(WindowOnScreen, name, level, key, frame, userInteraction, alpha, background, views,
                                   alert, transition)

/// A notification as it arrived at a place.
struct NotificationOnScreen {
  std::string id;
  std::string text;
};
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(NotificationOnScreen, id, text)

/// Everything a person sees.
struct Screen {
  std::string generation;  ///< "old" or "new"
  bool on = true;
  bool locked = false;
  bool poweringDown = false;
  bool editing = false;
  std::string frontmost;  ///< bundle identifier of the open application; empty on the home screen
  std::vector<IconOnScreen> icons;
  std::optional<QuickActionList> quickActions;
  std::vector<WindowOnScreen> windows;  ///< those that are not the system's own, bottom first
  std::vector<NotificationOnScreen> banners;
  std::vector<NotificationOnScreen> lockScreen;
  std::vector<std::string> switcher;  ///< the application switcher's titles, latest first
  double passed = 0;                  ///< the time that has passed, in seconds; a clock that nobody sets
  std::string orientation;            ///< "portrait" or "landscape"
  Frame bounds;                       ///< the screen, as the device is held
  int page = 1, pages = 1;            ///< of icons: the one that is shown, and how many there are
  std::vector<WindowOnScreen> tree;   ///< every window, bottom first

  /// The icon of that bundle identifier, or null.
  const IconOnScreen* icon(std::string_view id) const {
    for (const IconOnScreen& candidate : icons) {
      if (candidate.id == id) return &candidate;
    }
    return nullptr;
  }
  /// The sheet or alert of the topmost window, or null when it has none.
  const AlertOnScreen* topAlert() const {
    if (windows.empty()) return nullptr;
    const std::optional<AlertOnScreen>& alert = windows.back().alert;
    return alert ? &*alert : nullptr;
  }
};
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(Screen, generation, on, locked, poweringDown, editing, frontmost, icons,
                                   quickActions, windows, banners, lockScreen, switcher, passed, orientation, bounds,
                                   page, pages, tree)

}  // namespace sim
