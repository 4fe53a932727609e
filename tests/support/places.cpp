#include "tests/support/places.hpp"

namespace test {

const char* const sourceFolder = SOURCE_DIR;
const char* const buildFolder = BUILD_DIR;
const char* const driver = DRIVER;
const char* const minimalHost = MINIMAL_HOST;
const char* const pcLibrary = PC_LIBRARY;
const char* const deviceLibrary = DEVICE_LIBRARY;
const char* const pcPane = PC_PANE;
const char* const devicePane = DEVICE_PANE;
const char* const paneImages = PANE_IMAGES;
const char* const devicePackage = DEVICE_PACKAGE;

}  // namespace test
