#pragma once

#include <oaidl.h>
#include <windows.h>

/// The extension of a meta node of somebody else's, from a module of its own: a collection of that many nodes
/// (see compiled_node.h), which its repository holds. The caller takes over one count.
extern "C" [[nodiscard]] IDispatch* bench_makeExtension(ULONG count);
