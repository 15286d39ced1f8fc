#include "explorer/explorer.h"

namespace quorel::explorer {

using automation::ClassTable;

const ClassTable& Explorer::classTable() const {
    using automation::param;
    static const ClassTable table =
        lifecycleTable<Explorer>(u"Explorer")
            .objectProperty(u"RepositoryManager", &Explorer::RepositoryManager,
                            &Explorer::setRepositoryManager)
            .objectProperty(u"Repository", &Explorer::Repository, &Explorer::setRepository)
            .method(u"AddTreeDesc", &Explorer::AddTreeDesc,
                    {param(u"parentId"), param(u"typ"), param(u"metatype"), param(u"Caption"), param(u"icon"),
                     param(u"paneId")})
            .method(u"AddPicture", &Explorer::AddPicture,
                    {param(u"icon"), param(u"picturePath"), param(u"bigPicturePath", u"")})
            .method(u"AddPane", &Explorer::AddPane,
                    {param(u"paneId"), param(u"icon"), param(u"Caption"), param(u"subPane", u"")})
            .method(u"AddProperty", &Explorer::AddProperty,
                    {param(u"paneId"), param(u"metatype"), param(u"subPane", u"")})
            .method(u"AddSeparator", &Explorer::AddSeparator, {param(u"paneId"), param(u"subPane", u"")})
            .method(u"AddToolbar", &Explorer::AddToolbar, {param(u"paneId"), param(u"subPane", u"")})
            .method(u"AddListView", &Explorer::AddListView,
                    {param(u"paneId"), param(u"view"), param(u"metaobject"), param(u"icon"),
                     param(u"subPane", u"")})
            .method(u"AddSubPane", &Explorer::AddSubPane, {param(u"paneId"), param(u"Caption")})
            .method(u"AddLabel", &Explorer::AddLabel,
                    {param(u"paneId"), param(u"text"), param(u"bold", false), param(u"size", 8),
                     param(u"subPane", u"")})
            .method(u"AddCombo", &Explorer::AddCombo,
                    {param(u"paneId"), param(u"metaobject"), param(u"MetaLink"), param(u"view"),
                     param(u"subPane", u"")});
    return table;
}

void Explorer::Create() {
    const auto window = makeForm();
    descriptions_.clear();
    window->Create();
}

std::u16string Explorer::AddTreeDesc(const std::u16string& parentId, const std::u16string& typ,
                                     const std::u16string& metatype, const std::u16string& Caption,
                                     const std::u16string& icon, const std::u16string& paneId) {
    const auto window = form();
    controls::TreeView& tree = window->TreeView1();
    std::shared_ptr<controls::TreeDescription> parent;
    if (!parentId.empty()) {
        const auto found = descriptions_.find(parentId);
        if (found == descriptions_.end())
            throw automation::Error(automation::error_number::kSubscriptOutOfRange,
                                    u"There is no description '" + parentId + u"'", u"QuorelUtility");
        parent = found->second;
    }
    const auto made =
        tree.AddChildDesc(parent ? *parent : tree.rootDescription(), typ, metatype, Caption, icon, paneId);
    descriptions_.emplace(made->key, made);
    return made->key;
}

void Explorer::AddPicture(const std::u16string& icon, const std::u16string& picturePath,
                          const std::u16string& bigPicturePath) {
    form()->AddPicture(icon, picturePath, bigPicturePath);
}

void Explorer::AddPane(const std::u16string& paneId, const std::u16string& icon,
                       const std::u16string& Caption, const std::u16string& subPane) {
    form()->AddPane(paneId, icon, Caption, subPane);
}

void Explorer::AddProperty(const std::u16string& paneId, const std::u16string& metatype,
                           const std::u16string& subPane) {
    form()->Panes(paneId).AddProperty(metatype, subPane);
}

void Explorer::AddSeparator(const std::u16string& paneId, const std::u16string& subPane) {
    form()->Panes(paneId).AddSeparator(subPane);
}

void Explorer::AddToolbar(const std::u16string& paneId, const std::u16string& subPane) {
    form()->Panes(paneId).AddToolbar(subPane);
}

void Explorer::AddListView(const std::u16string& paneId, const std::u16string& view,
                           const std::u16string& metaobject, const std::u16string& icon,
                           const std::u16string& subPane) {
    form()->Panes(paneId).AddListView(view, metaobject, icon, subPane);
}

void Explorer::AddSubPane(const std::u16string& paneId, const std::u16string& Caption) {
    form()->Panes(paneId).AddSubPane(Caption);
}

void Explorer::AddLabel(const std::u16string& paneId, const std::u16string& text, bool bold,
                        std::int32_t size, const std::u16string& subPane) {
    form()->Panes(paneId).AddLabel(text, bold, size, subPane);
}

void Explorer::AddCombo(const std::u16string& paneId, const std::u16string& metaobject,
                        const std::u16string& MetaLink, const std::u16string& view,
                        const std::u16string& subPane) {
    form()->Panes(paneId).AddCombo(metaobject, MetaLink, view, subPane);
}

}  // namespace quorel::explorer
