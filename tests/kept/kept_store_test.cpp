// The store: its thread brings to the disk what it is handed, in order, and fails without a word.
#include "kept/kept_store.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "kept/some_screens.h"
#include "platform/temporary_folder.h"

namespace zirvo::test {
namespace {

KeptStore::Snapshot Snapshot(const std::string& mark) {
    return std::make_shared<KeptScreen>(SomeScreen(mark));
}

class KeptStores : public testing::Test {
protected:
    const TemporaryFolder Home;
    const std::string Folder = Home.Path("kept");

    /// What the next program is offered: the mark; "" for nothing.
    std::string Next() const {
        KeptStore store(Folder);
        const auto offer = store.Newest("Form3", FitsAll);
        return offer ? MarkOf(offer->Data) : "";
    }
    std::size_t Files() const {
        std::size_t count = 0;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(Folder)) {
            count += entry.path().extension() == ".json" ? 1U : 0U;
        }
        return count;
    }
};

TEST_F(KeptStores, WritesAllBeforeItGoes) {
    {
        KeptStore store(Folder);
        store.Keep(Snapshot("1"), nullptr);
        store.Keep(Snapshot("2"), nullptr);
        store.Keep(Snapshot("3"), nullptr);
    }
    EXPECT_EQ(Next(), "3");
    EXPECT_EQ(Files(), 1U);
}

TEST_F(KeptStores, KeepsTheOrderOfWhatItIsAsked) {
    {
        KeptStore store(Folder);
        store.Keep(Snapshot("1"), nullptr);
        store.StartAnother("Form3");
        store.Keep(Snapshot("2"), nullptr);
        store.Forget("Form3");
    }
    EXPECT_EQ(Next(), "1");
}

TEST_F(KeptStores, TheSameDataAreNotWrittenAgain) {
    KeptStore store(Folder);
    store.Keep(Snapshot("1"), nullptr);
    store.Wait();
    for (const auto& program : std::filesystem::directory_iterator(Folder)) {
        EXPECT_TRUE(std::filesystem::remove(program.path() / "Form3.json"));  // the locked file beside it has to stay
    }
    store.Keep(Snapshot("1"), nullptr);
    store.Wait();
    EXPECT_EQ(Files(), 0U);
    store.Keep(Snapshot("2"), nullptr);
    store.Wait();
    EXPECT_EQ(Files(), 1U);
}

TEST_F(KeptStores, TheSameDataAfterOthersAreWrittenAgain) {
    {
        KeptStore store(Folder);
        store.Keep(Snapshot("1"), nullptr);
        store.StartAnother("Form3");
        store.Keep(Snapshot("2"), nullptr);
        store.StartAnother("Form3");
        store.Keep(Snapshot("1"), nullptr);
    }
    EXPECT_EQ(Files(), 2U);
    EXPECT_EQ(Next(), "1");
}

TEST_F(KeptStores, DataThatComeBackBeforeOthersWereKeptGoOnAndLeaveTheEarlierOnesAlone) {
    {
        KeptStore store(Folder);
        store.Keep(Snapshot("1"), nullptr);
        store.StartAnother("Form3");
        store.Keep(Snapshot("2"), nullptr);
        store.StartAnother("Form3");
        store.StartAnother("Form3");
        store.KeepUndone(Snapshot("2"), nullptr);  // and at once, before the thread has come to it:
        store.Keep(Snapshot("3"), nullptr);
        store.StandsInFile(Snapshot("3"));
    }
    EXPECT_EQ(Files(), 1U);
    EXPECT_EQ(Next(), "1");
}

TEST_F(KeptStores, WhatStandsInAFileIsNotOfferedAsWhatStoodThereBefore) {
    {
        KeptStore store(Folder);
        store.Keep(Snapshot("1"), nullptr);
        store.StartAnother("Form3");
        store.Keep(Snapshot("2"), nullptr);
        store.StandsInFile(Snapshot("1"));
    }
    EXPECT_EQ(Next(), "");
}

TEST_F(KeptStores, WhatStandsInAFileOfTheUsersIsForgotten) {
    {
        KeptStore store(Folder);
        store.Keep(Snapshot("1"), nullptr);
        store.Keep(Snapshot("2"), Snapshot("2"));
    }
    EXPECT_EQ(Next(), "");
    {
        KeptStore store(Folder);
        store.Keep(Snapshot("3"), Snapshot("2"));
    }
    EXPECT_EQ(Next(), "3");
}

TEST_F(KeptStores, OffersTakesAndDeclines) {
    {
        KeptStore store(Folder);
        store.Keep(Snapshot("1"), nullptr);
    }
    {
        KeptStore store(Folder);
        store.Decline(*store.Newest("Form3", FitsAll));
        const auto again = store.Newest("Form3", FitsAll);
        ASSERT_TRUE(again.has_value());
        EXPECT_TRUE(again->Declined);
        store.Take(*again);
        EXPECT_FALSE(store.Newest("Form3", FitsAll).has_value());
    }
    EXPECT_EQ(Next(), "1");
}

TEST_F(KeptStores, TellsWhetherWhatStandsInNoFileIsOnTheDisk) {
    KeptStore good(Folder);
    EXPECT_EQ(good.IsKept(), std::nullopt);
    good.Keep(Snapshot("1"), nullptr);
    EXPECT_EQ(good.IsKept(), true);
    good.Keep(Snapshot("1"), nullptr);
    EXPECT_EQ(good.IsKept(), true);
    good.Keep(Snapshot("1"), Snapshot("1"));
    EXPECT_EQ(good.IsKept(), std::nullopt);
    good.Keep(Snapshot("2"), Snapshot("1"));
    good.Forget("Form3");
    EXPECT_EQ(good.IsKept(), std::nullopt);
    KeptStore bad(Home.Put("file", "x") + "/kept");
    bad.Keep(Snapshot("1"), nullptr);
    EXPECT_EQ(bad.IsKept(), false);
    bad.StartAnother("Form3");
    EXPECT_EQ(bad.IsKept(), std::nullopt);
    KeptStore none("");
    none.Keep(Snapshot("1"), nullptr);
    EXPECT_EQ(none.IsKept(), false);
    EXPECT_FALSE(none.Newest("Form3", FitsAll).has_value());
}

TEST_F(KeptStores, AFailedWriteIsTriedAgain) {
    KeptStore store(Home.Path("file/kept"));
    Home.Put("file", "x");
    store.Keep(Snapshot("1"), nullptr);
    EXPECT_EQ(store.IsKept(), false);
    std::filesystem::remove(Home.Path("file"));
    store.Keep(Snapshot("1"), nullptr);
    EXPECT_EQ(store.IsKept(), true);
}

}  // namespace
}  // namespace zirvo::test
