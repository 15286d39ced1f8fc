#pragma once

#include <string>

#include "diagram/layout/layout.h"

namespace quorel::bench {

/// The metamodel of a repository file as the diagram of it is laid out, with boxes and labels of the sizes
/// that they have in a font whose letters are all 0.6 em wide. Throws `Error` when the file cannot be read.
[[nodiscard]] diagram::layout::Diagram metamodelDiagram(const std::u16string& file);

}  // namespace quorel::bench
