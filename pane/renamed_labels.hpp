// The page of renamed labels: a name can be taken away there, and only there.
#pragma once

namespace pane {

/// Registers `SprigdialRenamedLabelsController`.
void registerRenamedLabels();

}  // namespace pane
