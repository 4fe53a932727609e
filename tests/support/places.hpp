// Where the build has put what the tests look at and start.
#pragma once

#include <string>

namespace test {

extern const char* const sourceFolder;
extern const char* const buildFolder;
extern const char* const driver;         ///< the program that a person starts
extern const char* const minimalHost;    ///< a host of the library that is not the simulator
extern const char* const pcLibrary;      ///< the add-on for this PC
extern const char* const deviceLibrary;  ///< the add-on for a phone
extern const char* const pcPane;         ///< its settings pane for this PC
extern const char* const devicePane;     ///< its settings pane for a phone
extern const char* const paneImages;     ///< the folder of the pane's pictures
extern const char* const devicePackage;  ///< what a phone installs

/// A file of the sources, given by its path from their folder.
inline std::string sourceFile(const std::string& path) { return std::string(sourceFolder) + "/" + path; }

}  // namespace test
