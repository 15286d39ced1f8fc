// An explorer over a library: authors and their books, with a pane for each, bound late.
// sample_explorer FILE

#include <cstdio>

#include "dispatch.h"

namespace {

/// Describes entries of the tree; returns the id under which others hang.
_bstr_t describe(IDispatch* explorer, const _bstr_t& parent, const wchar_t* kind, const wchar_t* type,
                 const wchar_t* caption, const wchar_t* pane) {
    return _bstr_t(call(explorer, L"AddTreeDesc", parent, kind, type, caption, L"", pane));
}

void describeTree(IDispatch* explorer) {
    describe(explorer, L"", L"Group", L"", L"About", L"ID:1");
    const _bstr_t authors = describe(explorer, L"", L"Group", L"", L"Authors", L"authors");
    const _bstr_t author = describe(explorer, authors, L"Extension", L"Author", L"", L"author");
    describe(explorer, author, L"Links", L"Author.Wrote.Book", L"", L"book");
}

void describePanes(IDispatch* explorer) {
    call(explorer, L"AddPane", L"authors", L"", L"All authors", L"Authors");
    call(explorer, L"AddToolbar", L"authors");
    call(explorer, L"AddListView", L"authors", L"Extension", L"Author", L"");

    call(explorer, L"AddPane", L"author", L"", L"An author", L"Author");
    call(explorer, L"AddProperty", L"author", L"Author");
    call(explorer, L"AddSubPane", L"author", L"Books");
    call(explorer, L"AddListView", L"author", L"Link-Target", L"Author.Wrote.Book", L"", L"Books");

    call(explorer, L"AddPane", L"book", L"", L"A book", L"Book");
    call(explorer, L"AddLabel", L"book", L"  A book", true, 12L);
    call(explorer, L"AddProperty", L"book", L"Book");
}

}  // namespace

int wmain(int argc, wchar_t** argv) try {
    if (argc != 2)
        return 2;
    const Apartment apartment;
    const IDispatchPtr session = create(L"QuorelRepository.Session");
    const IDispatchPtr information = object(object(session, L"RepositoryManager"), L"Open", argv[1]);

    const IDispatchPtr explorer = create(L"QuorelUtility.Explorer");
    call(explorer, L"Create");
    putRef(explorer, L"Repository", object(information, L"Repository"));
    call(explorer, L"Init");
    describeTree(explorer);
    describePanes(explorer);
    call(explorer, L"PopUp");
    call(explorer, L"Deinit");
    call(explorer, L"Destroy");
    return 0;
} catch (const _com_error& error) {
    std::fwprintf(stderr, L"error 0x%08lx\n", static_cast<unsigned long>(error.Error()));
    return 1;
}
