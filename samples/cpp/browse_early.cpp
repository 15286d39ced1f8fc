// Opens a repository file, offers the nodes of a type, and shows the chosen one in the six-pane browser until
// the user closes the window. Bound early through the header of the type library; a repository is called by
// name. sample_browse_early FILE METANODE

#include <cstdio>

#include "dispatch.h"
#include "server/QuorelUtility.h"

using ISixPanePtr = _com_ptr_t<_com_IIID<ISixPane, &__uuidof(ISixPane)>>;
using ISelectItemPtr = _com_ptr_t<_com_IIID<ISelectItem, &__uuidof(ISelectItem)>>;
using _com_util::CheckError;

namespace {

/// Null when the user cancels.
IDispatchPtr choose(IDispatch* nodes) {
    const ISelectItemPtr dialog(__uuidof(SelectItem));
    const _bstr_t none(L"");
    CheckError(dialog->Create());
    const long count = call(nodes, L"Count");
    for (long i = 1; i <= count; ++i) {
        const IDispatchPtr node = object(nodes, L"Item", i);
        const _bstr_t name(call(node, L"name"));
        BSTR text = name;
        IDispatch* behind = node;
        CheckError(dialog->AddItem(&text, &behind, none, none, none, none, none, none, none));
    }
    CheckError(dialog->PopUp());
    VARIANT_BOOL isOk = VARIANT_FALSE;
    CheckError(dialog->IsOk(&isOk));
    IDispatch* chosen = nullptr;
    if (isOk != VARIANT_FALSE)
        CheckError(dialog->get_Selection(&chosen));
    CheckError(dialog->Destroy());
    return IDispatchPtr(chosen, false);
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

    const ISixPanePtr browser(__uuidof(SixPane));
    _variant_t unused;
    IDispatch* shown = chosen;
    CheckError(browser->Create(_bstr_t(L"Browser"), session));
    CheckError(browser->putref_Repository(repository));
    CheckError(browser->Init(&unused));
    CheckError(browser->Populate(&unused));
    CheckError(browser->SetSelection(&shown));
    CheckError(browser->PopUp(VARIANT_TRUE));
    CheckError(browser->Deinit(&unused));
    CheckError(browser->Destroy());
    return 0;
} catch (const _com_error& error) {
    std::fwprintf(stderr, L"error 0x%08lx\n", static_cast<unsigned long>(error.Error()));
    return 1;
}
