// Opens a repository file, offers the nodes of a type, and shows the chosen one in the six-pane browser until
// the user closes the window. Bound late: everything by name at run time. sample_browse_late FILE METANODE

#include <cstdio>

#include "dispatch.h"

namespace {

/// Null when the user cancels.
IDispatchPtr choose(IDispatch* nodes) {
    const IDispatchPtr dialog = create(L"QuorelUtility.SelectItem");
    call(dialog, L"Create");
    const long count = call(nodes, L"Count");
    for (long i = 1; i <= count; ++i) {
        const IDispatchPtr node = object(nodes, L"Item", i);
        call(dialog, L"AddItem", call(node, L"name"), node.GetInterfacePtr());
    }
    call(dialog, L"PopUp");
    const IDispatchPtr chosen = call(dialog, L"IsOk") ? object(dialog, L"Selection") : IDispatchPtr();
    call(dialog, L"Destroy");
    return chosen;
}

}  // namespace

int wmain(int argc, wchar_t** argv) try {
    if (argc != 3)
        return 2;
    const Apartment apartment;
    const IDispatchPtr session = create(L"QuorelRepository.Session");
    const IDispatchPtr information = object(object(session, L"RepositoryManager"), L"Open", argv[1]);
    const IDispatchPtr repository = object(information, L"Repository");
    const IDispatchPtr chosen =
        choose(object(object(object(repository, L"MetaNodes"), L"Item", argv[2]), L"Extension"));
    if (!chosen)
        return 0;
    std::wprintf(L"%ls\n", _bstr_t(call(chosen, L"name")).GetBSTR());

    const IDispatchPtr browser = create(L"QuorelUtility.SixPane");
    call(browser, L"Create", L"Browser", session.GetInterfacePtr());
    putRef(browser, L"Repository", repository);
    call(browser, L"Init");
    call(browser, L"Populate");
    call(browser, L"SetSelection", chosen.GetInterfacePtr());
    call(browser, L"PopUp");
    call(browser, L"Deinit");
    call(browser, L"Destroy");
    return 0;
} catch (const _com_error& error) {
    std::fwprintf(stderr, L"error 0x%08lx\n", static_cast<unsigned long>(error.Error()));
    return 1;
}
