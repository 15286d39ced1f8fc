#pragma once

#include "frame/environment.h"

namespace quorel::server {

/// Adds the library's public classes to the environment's class table, so that hosts and the windows
/// themselves create them by programmatic identifier. The environment's parts must outlive every object made.
void registerPublicClasses(const frame::Environment& environment);

}  // namespace quorel::server
