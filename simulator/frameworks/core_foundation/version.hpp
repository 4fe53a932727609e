#pragma once

extern "C" {
/// The system's generation, as the framework's version. It may be set before the add-on is mapped.
extern double kCFCoreFoundationVersionNumber;
}
