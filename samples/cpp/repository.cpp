// Reads a repository file, bound late: its types, and the links of one node.
// sample_repository FILE [META-NODE IDENTIFIER]

#include <fcntl.h>
#include <io.h>

#include <cstdio>

#include "dispatch.h"

namespace {

_bstr_t text(IDispatch* from, const wchar_t* name) {
    return _bstr_t(call(from, name));
}

/// Calls `visit` with every element of a collection.
template <class Visit>
void forEach(IDispatch* collection, Visit visit) {
    const long count = call(collection, L"Count");
    for (long i = 1; i <= count; ++i)
        visit(object(collection, L"Item", i));
}

void showTypes(IDispatch* repository) {
    std::wprintf(L"%ls: %ls\n", static_cast<const wchar_t*>(text(repository, L"name")),
                 static_cast<const wchar_t*>(text(repository, L"Description")));
    forEach(object(repository, L"MetaNodes"), [](IDispatch* type) {
        const long count = call(object(type, L"Extension"), L"Count");
        std::wprintf(L"  %ld of the type %ls\n", count, static_cast<const wchar_t*>(text(type, L"name")));
    });
}

void showLinks(IDispatch* node) {
    std::wprintf(L"%ls\n", static_cast<const wchar_t*>(text(node, L"name")));
    forEach(object(object(node, L"Parent"), L"outgoing"), [node](IDispatch* metaLink) {
        const _bstr_t name = text(metaLink, L"name");
        forEach(object(node, L"Outgoing_", name), [&name](IDispatch* link) {
            std::wprintf(L"  %ls: %ls\n", static_cast<const wchar_t*>(name),
                         static_cast<const wchar_t*>(text(object(link, L"target"), L"name")));
        });
    });
}

}  // namespace

int wmain(int argc, wchar_t** argv) try {
    if (argc != 2 && argc != 4)
        return 2;
    // Names may be in any script.
    _setmode(_fileno(stdout), _O_U8TEXT);
    const Apartment apartment;
    const IDispatchPtr manager = create(L"QuorelRepository.RepositoryManager");
    const IDispatchPtr repository = object(object(manager, L"Open", argv[1]), L"Repository");
    showTypes(repository);
    if (argc == 4)
        showLinks(object(object(object(repository, L"MetaNodes"), L"Item", argv[2]), L"Extension", argv[3]));
    return 0;
} catch (const _com_error& error) {
    std::fwprintf(stderr, L"error 0x%08lx\n", static_cast<unsigned long>(error.Error()));
    return 1;
}
