#pragma once

#include <string>

#include "frame/environment.h"

namespace quorel::navigator {

/// What the navigator needs of the world, made once by an entry point; outlives every window made with it.
struct Services {
    const frame::Environment& environment;
    /// Where the navigator keeps what it writes for the user: the description of its settings, the sample.
    /// Made when something is first written to it; without a separator at its end.
    std::u16string userFolder;
    /// Where the program lies with the sample that ships; never written to, without a separator at its end.
    std::u16string programFolder;
};

}  // namespace quorel::navigator
