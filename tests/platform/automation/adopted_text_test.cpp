#include "platform/automation/adopted_text.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/automation/calls.h"
#include "platform/automation/class_table.h"
#include "platform/automation/value.h"

namespace quorel::automation {
namespace {

std::vector<const char16_t*> released;

void release(char16_t* buffer) noexcept {
    released.push_back(buffer);
}
void releaseOther(char16_t*) noexcept {}

/// A buffer of somebody else's, and what happened to it.
class AdoptedTextTest : public ::testing::Test {
  protected:
    void SetUp() override { released.clear(); }

    [[nodiscard]] AdoptedText adopted() { return {buffer_.data(), buffer_.size(), release}; }
    [[nodiscard]] bool isReleased() const { return released == std::vector<const char16_t*>{buffer_.data()}; }

    std::u16string buffer_{u"ab\0c", 4};
};

TEST_F(AdoptedTextTest, IsReadWhereItIsAndReleasedOnce) {
    {
        const Value value(adopted());
        ASSERT_TRUE(value.text());
        EXPECT_EQ(*value.text(), buffer_);
        EXPECT_EQ(value.text()->data(), buffer_.data());
        EXPECT_TRUE(released.empty());
    }
    EXPECT_TRUE(isReleased());
}

TEST_F(AdoptedTextTest, MovesWithItsBuffer) {
    {
        Value first(adopted());
        Value second(std::move(first));
        Value third(7);
        third = std::move(second);
        EXPECT_EQ(third.text()->data(), buffer_.data());
        EXPECT_TRUE(released.empty());
        third = Value(u"another");
        EXPECT_TRUE(isReleased());
    }
    EXPECT_TRUE(isReleased());
}

TEST_F(AdoptedTextTest, CopiesIntoABufferOfItsOwn) {
    Value copy;
    {
        const Value value(adopted());
        copy = value;
        const Value again(copy);
        EXPECT_EQ(*again.text(), buffer_);
        EXPECT_NE(copy.text()->data(), buffer_.data());
    }
    EXPECT_TRUE(isReleased());
    EXPECT_EQ(copy.toString(), buffer_);
}

TEST_F(AdoptedTextTest, IsHandedOverOnlyToItsOwner) {
    {
        AdoptedText text = adopted();
        EXPECT_EQ(text.handOver(releaseOther), nullptr);
        EXPECT_EQ(text.view(), buffer_);
        EXPECT_EQ(text.handOver(release), buffer_.data());
        EXPECT_EQ(text.view(), u"");
        EXPECT_EQ(text.handOver(release), nullptr);
    }
    EXPECT_TRUE(released.empty());
}

TEST_F(AdoptedTextTest, NullStandsForTheEmptyText) {
    {
        const Value value(AdoptedText(nullptr, 0, release));
        EXPECT_EQ(value.kind(), ValueKind::String);
        EXPECT_EQ(value.toString(), u"");
        EXPECT_EQ(*Value(value).text(), u"");
        EXPECT_TRUE(Value::equal(value, Value()));
    }
    EXPECT_TRUE(released.empty());
}

TEST_F(AdoptedTextTest, AnswersAsEveryString) {
    std::u16string number = u"12";
    const Value value(AdoptedText(number.data(), number.size(), releaseOther));
    EXPECT_EQ(value.kind(), ValueKind::String);
    EXPECT_EQ(value.toInteger(), 12);
    EXPECT_EQ(value.toDouble(), 12.0);
    EXPECT_TRUE(value.toBoolean());
    EXPECT_TRUE(Value::equal(value, Value(u"12")));
    EXPECT_TRUE(Value::equal(Value(u"12"), value));
    EXPECT_FALSE(Value::equal(value, Value(12)));
    std::u16string date = u"2002-03-03";
    EXPECT_EQ(Value(AdoptedText(date.data(), date.size(), releaseOther)).toDate().serial, 37318.0);
}

TEST(ValueMoves, LeaveNothingBehind) {
    const std::vector<Value> kinds{Value::null(),
                                   Value::missing(),
                                   Value(true),
                                   Value(7),
                                   Value(1.5),
                                   Value(Date{2}),
                                   Value(u"a longer text than fits in place"),
                                   Value(Bytes{{1, 2}, 3}),
                                   Value(Array{{Value(1), Value(u"two")}, 0}),
                                   Value::error(9),
                                   Value::nothing()};
    for (const Value& value : kinds) {
        Value copy(value);
        EXPECT_EQ(copy.kind(), value.kind());
        Value moved(std::move(copy));
        EXPECT_TRUE(copy.isEmpty());  // NOLINT(bugprone-use-after-move): that is the question
        EXPECT_EQ(moved.kind(), value.kind());
        EXPECT_TRUE(value.isNull() || Value::equal(moved, value)) << static_cast<int>(value.kind());
        Value& itself = moved;
        moved = std::move(itself);
        EXPECT_EQ(moved.kind(), value.kind());
        moved = value;
        EXPECT_EQ(moved.kind(), value.kind());
    }
}

/// Comes back to the variable that held it last.
class Returning final : public NativeObject {
  public:
    explicit Returning(Value& variable) : variable_(variable) {}
    ~Returning() override {
        EXPECT_EQ(variable_.toString(), u"new");
        variable_ = Value(u"from within");
    }
    [[nodiscard]] const ClassTable& classTable() const override {
        static const ClassTable table = ClassTable::of<Returning>(u"Returning");
        return table;
    }

  private:
    Value& variable_;
};

TEST(ValueMoves, LetGoOfAnObjectLast) {
    Value variable;
    variable = make<Returning>(variable);
    variable = Value(u"new");
    EXPECT_EQ(variable.toString(), u"from within");
}

}  // namespace
}  // namespace quorel::automation
