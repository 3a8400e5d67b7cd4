// Tests of properties: what a write does and what it does not.
#include "forms/property.h"

#include <gtest/gtest.h>

#include "forms/shared_log.h"

namespace zirvo::forms {
namespace {

struct Watched {
    Log log;
    Property<int> Number{1, [this] { log.Note("view"); }, [this] { log.Note("event"); }};
};

TEST(Property, AWriteOfAnotherValueTellsTheViewAndThenRaisesTheEvent) {
    Watched watched;
    watched.Number = 2;
    EXPECT_EQ(watched.Number, 2);
    EXPECT_EQ(watched.log.Lines, (std::vector<std::string>{"view", "event"}));
}

TEST(Property, AWriteOfTheValueThatItHasDoesNothing) {
    Watched watched;
    watched.Number = 1;
    EXPECT_TRUE(watched.log.Lines.empty());
}

TEST(Property, StoreRaisesNoEvent) {
    Watched watched;
    EXPECT_TRUE(watched.Number.Store(2));
    EXPECT_FALSE(watched.Number.Store(2));
    EXPECT_EQ(watched.log.Lines, std::vector<std::string>{"view"});
}

TEST(Property, ASetterTakesChargeOfEveryWrite) {
    Watched watched;
    watched.Number.SetBy([&](int value) { watched.Number.Store(value * 10); });
    watched.Number = 1;
    EXPECT_EQ(watched.Number, 10);
    EXPECT_EQ(watched.log.Lines, std::vector<std::string>{"view"});
}

TEST(Property, AssigningAnotherPropertyWritesItsValue) {
    Watched watched;
    const Property<int> other(7);
    watched.Number = other;
    EXPECT_EQ(watched.Number, 7);
    EXPECT_EQ(watched.log.Lines, (std::vector<std::string>{"view", "event"}));
    const Property<int>& itself = watched.Number;
    watched.Number = itself;
    EXPECT_EQ(watched.log.Lines.size(), 2U);
}

TEST(Property, ReadsLikeAField) {
    Property<std::string> text("abc");
    std::string copy = text;
    copy += "d";
    std::string assigned;
    assigned = text;
    const std::string_view view = text;
    EXPECT_EQ(copy, "abcd");
    EXPECT_EQ(assigned, "abc");
    EXPECT_EQ(view, "abc");
    EXPECT_TRUE(text == "abc");
    EXPECT_TRUE(text == assigned);
    const Property<int> rows(5);
    const Property<int> fixedRows(1);
    EXPECT_TRUE(rows > fixedRows);
    EXPECT_EQ(rows - 1, 4);
}

}  // namespace
}  // namespace zirvo::forms
