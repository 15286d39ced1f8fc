#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "frame/environment.h"
#include "frame/form_holder.h"
#include "platform/automation/class_table.h"
#include "platform/automation/native_object.h"

namespace quorel::frame {

/// A public class that owns one window, the form `F`, and forwards its members to it. Every member but
/// `Create` and `Destroy` is error 91 while there is no form; what fails inside the window is shown there.
///
/// A member of this template or the next is only made for a class that publishes it, so `F` need only have
/// what its own class publishes.
template <class F>
class WindowClass : public automation::NativeObject {
  public:
    explicit WindowClass(const Environment& environment) : environment_(environment) {}

    /// Hides, unloads and drops the window. Harmless when there is none.
    void Destroy() { holder_.destroy(); }
    void PopUp(bool modal = true) { form()->PopUp(modal); }
    void Conceal() { form()->Conceal(); }

  protected:
    [[nodiscard]] const Environment& environment() const noexcept { return environment_; }
    /// Error 91 while there is none.
    [[nodiscard]] std::shared_ptr<F> form() const { return holder_.form(); }
    /// A new form, loaded, in place of the one before; for `Create`.
    std::shared_ptr<F> makeForm() { return holder_.create(std::make_shared<F>(environment_)); }

  private:
    Environment environment_;
    FormHolder<F> holder_;
};

/// A public class whose window shows a repository. What it adds: `Create`, in whose parameters these classes
/// differ, `classTable` and members of its own. See `SixPane` for one that does.
template <class F>
class BrowserClass : public WindowClass<F> {
  public:
    using WindowClass<F>::WindowClass;

    [[nodiscard]] std::u16string Path() const { return form()->Path; }
    void setPath(const std::u16string& path) { form()->Path = path; }
    void Init() { form()->Init(); }
    void Deinit() { form()->Deinit(); }
    void Populate() { form()->Populate(); }
    [[nodiscard]] automation::Object Repository() const { return form()->Repository(); }
    void setRepository(const automation::Object& repository) { form()->setRepository(repository); }
    [[nodiscard]] automation::Object RepositoryManager() const { return form()->RepositoryManager(); }
    void setRepositoryManager(const automation::Object& manager) { form()->setRepositoryManager(manager); }
    [[nodiscard]] automation::Object PackageObject() const { return form()->PackageObject(); }
    void setPackageObject(const automation::Object& package) { form()->setPackageObject(package); }
    [[nodiscard]] std::u16string RepositoryFileName() const { return form()->RepositoryFileName(); }
    void setRepositoryFileName(const std::u16string& fileName) { form()->setRepositoryFileName(fileName); }

  protected:
    using WindowClass<F>::form;

    /// Of a class that a session's component manager may know.
    [[nodiscard]] static std::vector<automation::Parameter> nameAndSession() {
        return {automation::param(u"name", u""), automation::param(u"session", automation::Value::nothing())};
    }

    /// The members with which the table of every such class begins: `Path` and the lifecycle, in published
    /// order.
    template <class Self>
    [[nodiscard]] static automation::ClassTable::Builder<Self> lifecycleTable(
        std::u16string_view className, std::vector<automation::Parameter> createParameters = {}) {
        return automation::ClassTable::of<Self>(className)
            .property(u"Path", &Self::Path, &Self::setPath)
            .method(u"Create", &Self::Create, std::move(createParameters))
            .method(u"Destroy", &Self::Destroy)
            .method(u"Init", &Self::Init)
            .method(u"Deinit", &Self::Deinit)
            .method(u"PopUp", &Self::PopUp, {automation::param(u"modal", true)})
            .method(u"Conceal", &Self::Conceal);
    }
};

}  // namespace quorel::frame
