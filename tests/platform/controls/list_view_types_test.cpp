// What a list asks of foreign rows beside their members: the proof of their type, once a row.

#include "tests/platform/controls/list_view_fixture.h"

namespace quorel::controls::testing {
namespace {

/// A family of objects of its own, native ones inside, whose proofs of type are counted.
class CountingBinding final : public automation::Binding {
  public:
    explicit CountingBinding(const automation::Binding& inner) : inner_(inner) {}

    void addRef(void* instance) const noexcept override { inner_.addRef(instance); }
    void release(void* instance) const noexcept override { inner_.release(instance); }
    [[nodiscard]] automation::MemberId resolve(void* instance, std::u16string_view name) const override {
        return inner_.resolve(instance, name);
    }
    Value invoke(void* instance, automation::MemberId id, automation::InvokeKind kind,
                 std::span<Argument> arguments) const override {
        return inner_.invoke(instance, id, kind, arguments);
    }
    [[nodiscard]] std::unique_ptr<automation::Enumerator> enumerate(void* instance) const override {
        return inner_.enumerate(instance);
    }
    [[nodiscard]] const void* identity(void* instance) const noexcept override {
        return inner_.identity(instance);
    }
    [[nodiscard]] const void* typeKey(void* instance) const noexcept override {
        ++proofs;
        return inner_.typeKey(instance);
    }
    [[nodiscard]] automation::NativeObject* native(void* instance) const noexcept override {
        return inner_.native(instance);
    }

    mutable std::size_t proofs = 0;

  private:
    const automation::Binding& inner_;
};

class ListViewTypes : public ListViewTest {
  protected:
    ListViewTypes() {
        for (Value& item : model.nodeExtension->items)
            item = Object::adopt(binding, item.toObject().detach());
        fill();
    }

    const CountingBinding binding{*Object(model.metaNode).binding()};
};

TEST_F(ListViewTypes, ARowsTypeIsProvenOnceForAllItsCells) {
    EXPECT_EQ(binding.proofs, 0U);
    EXPECT_EQ(look(0, 5).back(), (Texts{u"node4", u"v4", u"6"}));
    EXPECT_EQ(binding.proofs, 5U);
    EXPECT_EQ(look(0, 5).size(), 5U);
    EXPECT_EQ(binding.proofs, 5U);
}

TEST_F(ListViewTypes, ANewFillProvesAgain) {
    EXPECT_EQ(look(0, 5).size(), 5U);
    fill();
    EXPECT_EQ(look(0, 1).front().front(), u"node0");
    EXPECT_EQ(binding.proofs, 6U);
}

TEST_F(ListViewTypes, ARowThatIsRefreshedIsProvenAgain) {
    EXPECT_EQ(look(0, 5).size(), 5U);
    view.refreshObject(model.nodeExtension->items[2].toObject());
    EXPECT_EQ(look(0, 5).size(), 5U);
    EXPECT_EQ(binding.proofs, 6U);
}

}  // namespace
}  // namespace quorel::controls::testing
