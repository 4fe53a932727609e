#include "simulator/control/print.hpp"

#include <algorithm>
#include <cmath>
#include <sstream>
#include <string_view>
#include <utility>
#include <vector>

#include "simulator/control/width.hpp"

namespace sim {
namespace {

using Lines = std::vector<std::string>;

std::string repeated(std::string_view piece, std::size_t count) {
  std::string text;
  while (count-- > 0) text += piece;
  return text;
}

std::string padded(const std::string& text, std::size_t width) {
  return text + std::string(width - std::min(width, columns(text)), ' ');
}

std::string centred(const std::string& text, std::size_t width) {
  const std::size_t spare = width - std::min(width, columns(text));
  return padded(std::string(spare / 2, ' ') + text, width);
}

/// A number without decimals that say nothing.
std::string brief(double value) {
  const std::string text = nlohmann::json(value).dump();
  return text.ends_with(".0") ? text.substr(0, text.size() - 2) : text;
}

Lines split(const std::string& text) {
  Lines lines(1);
  for (const char c : text) {
    if (c == '\n') lines.emplace_back();
    else lines.back() += c;
  }
  return lines;
}

/// Sections of lines one under the other in a frame, with a rule between them.
Lines boxed(const std::vector<Lines>& sections) {
  std::size_t width = 24;
  for (const Lines& section : sections) {
    for (const std::string& line : section) width = std::max(width, columns(line));
  }
  const std::string rule = repeated("─", width + 2);
  Lines box = {"╭" + rule + "╮"};
  for (const Lines& section : sections) {
    if (box.size() > 1) box.push_back("├" + rule + "┤");
    for (const std::string& line : section) box.push_back("│ " + centred(line, width) + " │");
  }
  box.push_back("╰" + rule + "╯");
  return box;
}

void append(std::string& text, const Lines& lines, const std::string& indent) {
  for (const std::string& line : lines) text += indent + line + "\n";
}

std::string heading(const Screen& screen) {
  std::string text = "Home screen, " + screen.generation + " generation";
  if (!screen.on) text += " · screen off";
  if (screen.locked) text += " · locked";
  if (screen.editing) text += " · editing";
  if (screen.poweringDown) text += " · slide to power off";
  return text + "\n";
}

std::string iconText(const IconOnScreen& icon) {
  const char* picture = icon.kind == "downloading" ? "◌" : icon.kind == "bookmark" ? "◇" : "▢";
  std::string text = std::string(picture) + " " + (icon.labelHidden ? "····" : icon.label);
  if (!icon.badge.empty()) text += " (" + icon.badge + ")";
  return text;
}

std::string iconRows(const std::vector<IconOnScreen>& icons) {
  constexpr std::size_t perRow = 4;
  std::size_t width = 0;
  for (const IconOnScreen& icon : icons) width = std::max(width, columns(iconText(icon)));
  std::string text;
  for (std::size_t start = 0; start < icons.size(); start += perRow) {
    std::string row = " ";
    for (std::size_t index = start; index < std::min(icons.size(), start + perRow); ++index) {
      row += " " + padded(iconText(icons[index]), width + 1);
    }
    text += row.substr(0, row.find_last_not_of(' ') + 1) + "\n";
  }
  return text;
}

Lines quickActionBox(const QuickActionList& list) {
  std::vector<Lines> sections;
  for (const QuickAction& entry : list.entries) {
    Lines lines = {(entry.image.empty() ? "" : "◉ ") + entry.title};
    if (!entry.subtitle.empty()) lines.push_back(entry.subtitle);
    sections.push_back(lines);
  }
  return boxed(sections);
}

std::string fieldText(const TextFieldOnScreen& field) {
  const std::string shown = field.text.empty() ? "(" + field.placeholder + ")" : field.text;
  return "[ " + padded(shown, 20) + (field.clearButton == "always" ? " ⓧ ]" : " ]");
}

std::string buttonText(const ButtonOnScreen& button) {
  return button.style == "destructive" ? "! " + button.title + " !" : button.title;
}

Lines alertBox(const AlertOnScreen& alert) {
  std::vector<Lines> sections;
  Lines head;
  for (const auto& part : {alert.title, alert.message}) {
    if (!part) continue;
    for (const std::string& line : split(*part)) head.push_back(line);
  }
  for (const TextFieldOnScreen& field : alert.textFields) head.push_back(fieldText(field));
  if (!head.empty()) sections.push_back(head);
  Lines buttons;
  for (const ButtonOnScreen& button : alert.buttons) {
    // The cancel button stands apart from the others.
    if (button.style == "cancel" && !buttons.empty()) sections.push_back(std::exchange(buttons, {}));
    buttons.push_back(buttonText(button));
  }
  if (!buttons.empty()) sections.push_back(buttons);
  return boxed(sections);
}

std::string alertDetails(const AlertOnScreen& alert) {
  std::string text = alert.style;
  for (const TextFieldOnScreen& field : alert.textFields) {
    text += ", " + field.keyboard + " keyboard, return key " + field.returnKey;
  }
  if (alert.popover) {
    const Frame& rect = alert.popover->sourceRect;
    text += std::string(", popover on ") +
            (alert.popover->sourceIsRootView ? "the root view" : alert.popover->sourceView) + " " + brief(rect.width) +
            " × " + brief(rect.height) + (alert.popover->arrowDirections == 0 ? " without an arrow" : "");
  }
  return text;
}

/// A grey tone as its whiteness and its opacity.
std::string colorText(const Color& color) {
  if (color.red == color.green && color.green == color.blue) return brief(color.red) + "," + brief(color.alpha);
  return brief(color.red) + "," + brief(color.green) + "," + brief(color.blue) + "," + brief(color.alpha);
}

/// A plain container shows nothing by itself.
bool hasLook(const ViewOnScreen& view) {
  return !view.text.empty() || view.background || view.spinning || view.cornerRadius > 0;
}

/// What a sheet or an alert consists of is in its own picture.
bool isPresented(const ViewOnScreen& view) { return view.className == "UITransitionView"; }

void appendViews(std::string& text, const std::vector<ViewOnScreen>& views, const std::string& indent) {
  for (const ViewOnScreen& view : views) {
    if (view.hidden || isPresented(view)) continue;
    if (hasLook(view)) {
      text += indent + view.className + " " + brief(view.frame.width) + " × " + brief(view.frame.height) + " at " +
              brief(view.frame.x) + ", " + brief(view.frame.y);
      if (!view.text.empty()) text += " \"" + view.text + "\"";
      if (view.background) text += ", background " + colorText(*view.background);
      if (view.cornerRadius > 0) text += ", corners " + brief(view.cornerRadius);
      if (view.alpha < 1) text += ", opacity " + brief(view.alpha);
      if (view.spinning) text += ", spinning";
      text += "\n";
    }
    appendViews(text, view.subviews, hasLook(view) ? indent + "  " : indent);
  }
}

std::string windowText(const WindowOnScreen& window) {
  std::string text;
  if (window.alert) append(text, alertBox(*window.alert), "  ");
  text += "  window at level " + brief(window.level) + (window.key ? ", key" : "");
  if (window.alert) text += ": " + alertDetails(*window.alert);
  text += "\n";
  appendViews(text, window.views, "    ");
  return text;
}

std::string notifications(const char* place, const std::vector<NotificationOnScreen>& list) {
  std::string text;
  for (const NotificationOnScreen& item : list) text += std::string(place) + " " + item.id + ": " + item.text + "\n";
  return text;
}

constexpr std::size_t paneWidth = 48;

/// Two texts at the edges of a line of the pane, with a third in its middle.
std::string spread(const std::string& left, const std::string& right, const std::string& middle = "") {
  const std::size_t width = std::max(paneWidth, columns(left) + columns(right) + columns(middle) + 2);
  const std::size_t start =
      std::clamp((width - columns(middle)) / 2, columns(left) + 1, width - columns(right) - columns(middle) - 1);
  return padded(padded(left, start) + middle, width - columns(right)) + right;
}

/// The text in lines that are no wider than the pane, but for a word that is.
Lines wrapped(const std::string& text) {
  Lines lines;
  for (const std::string& paragraph : split(text)) {
    lines.emplace_back();
    std::istringstream words(paragraph);
    for (std::string word; words >> word;) {
      std::string& line = lines.back();
      if (line.empty()) line = word;
      else if (columns(line) + 1 + columns(word) <= paneWidth) line += " " + word;
      else lines.push_back(word);
    }
  }
  for (std::string& line : lines) line = padded(line, paneWidth);
  return lines;
}

std::string valueText(const CellOnScreen& cell) {
  if (cell.kind == "link" || cell.kind == "link list") return cell.value.empty() ? "›" : cell.value + " ›";
  if (cell.kind == "edit") return "[ " + cell.value + " ]";
  return cell.value;
}

std::string segmentsText(const CellOnScreen& cell) {
  std::string text;
  for (const std::string& choice : cell.choices) {
    text += (text.empty() ? "" : "   ") + (choice == cell.value ? "[" + choice + "]" : choice);
  }
  return text;
}

std::string sliderText(const CellOnScreen& cell) {
  constexpr std::size_t track = 24;
  const double part = cell.most > cell.least ? (std::stod(cell.value) - cell.least) / (cell.most - cell.least) : 0;
  const auto knob = static_cast<std::size_t>(std::lround(std::clamp(part, 0.0, 1.0) * track));
  return repeated("─", knob) + "●" + repeated("─", track - knob);
}

std::string cellText(const CellOnScreen& cell) {
  if (cell.kind == "segment") return centred(segmentsText(cell), paneWidth);
  if (cell.kind == "slider") return spread("  " + sliderText(cell), cell.value);
  return spread("  " + (cell.enabled ? cell.label : "(" + cell.label + ")"), valueText(cell));
}

Lines paneBox(const PaneOnScreen& pane) {
  std::vector<Lines> sections = {{spread(pane.back ? "‹ " + *pane.back : "", pane.button.value_or(""), pane.title)}};
  std::string footer;
  const auto endGroup = [&] {
    if (footer.empty()) return;
    for (const std::string& line : wrapped(std::exchange(footer, ""))) sections.back().push_back(line);
  };
  for (const CellOnScreen& cell : pane.cells) {
    if (cell.kind != "group") {
      sections.back().push_back(cellText(cell));
      continue;
    }
    endGroup();
    sections.emplace_back();
    if (!cell.label.empty()) sections.back().push_back(padded(cell.label, paneWidth));
    footer = cell.footer;
  }
  endGroup();
  std::erase_if(sections, [](const Lines& section) { return section.empty(); });
  return boxed(sections);
}

}  // namespace

std::string printed(const PaneOnScreen& pane) {
  std::string text = "Settings application\n";
  append(text, paneBox(pane), "  ");
  if (pane.alert) append(text, alertBox(*pane.alert), "  ");
  return text;
}

std::string printed(const Screen& screen) {
  std::string text = heading(screen);
  if (!screen.frontmost.empty()) text += "Open: " + screen.frontmost + "\n";
  text += iconRows(screen.icons);
  if (screen.quickActions) {
    text += "Quick actions of " + screen.quickActions->id + "\n";
    append(text, quickActionBox(*screen.quickActions), "  ");
  }
  for (const WindowOnScreen& window : screen.windows) text += windowText(window);
  text += notifications("Banner", screen.banners) + notifications("Lock screen", screen.lockScreen);
  if (!screen.switcher.empty()) {
    text += "Switcher:";
    for (const std::string& title : screen.switcher) text += " [" + title + "]";
    text += "\n";
  }
  return text;
}

}  // namespace sim
