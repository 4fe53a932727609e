// What a person does with the settings application. What it does not have is a `Refused`, which changes nothing. Time
// passes until what comes or goes has done so.
#pragma once

#include <string>

namespace sim::pane {

/// Goes back to the first list and taps the row of that label.
void open(const std::string& label);
/// Sets the row's control: a switch to "on" or "off", a segmented control to a title, a slider to a number, a text
/// field to a text.
void set(const std::string& label, const std::string& value);
/// Taps a row that leads somewhere or does something, the button beside the title, or a button of the alert that is up.
void press(const std::string& label);
/// Swipes the row away.
void remove(const std::string& label);
/// Taps the way back.
void back();

}  // namespace sim::pane
