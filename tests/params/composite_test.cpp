#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "params/number_blocks.h"
#include "params/param_block.h"
#include "tests/params/block_support.h"

namespace {

using testing::ElementsAre;

/// A composite with nothing of its own; reading makes generic blocks.
class Plain : public CZurComposite {
public:
    Plain() : CZurComposite(0, 0) {}
    void ReadChild(std::strstream* stream) override {
        AddChild(std::make_unique<CZurParamBlock>(stream, true), -1);
    }
    /// Puts numbers in, identifiers as given, values 0, 1, 2, ...
    void Fill(std::initializer_list<std::uint32_t> ids) {
        for (const auto id : ids) {
            AddChild(std::make_unique<CZurIntParamBlock>(id, static_cast<std::uint32_t>(Count())),
                     -1);
        }
    }
    std::vector<std::uint32_t> Values() const {
        std::vector<std::uint32_t> values(static_cast<std::size_t>(Count()));
        for (std::int32_t i = 0; i < Count(); ++i) {
            FindChild(kAnyBlock, i)->GetValue(&values[static_cast<std::size_t>(i)]);
        }
        return values;
    }
};

TEST(Composite, FindsChildrenByPositionAndByOccurrence) {
    Plain list;
    list.Fill({10, 20, 10, 30, 10});
    EXPECT_EQ(list.GetLength(), 4U + 5 * 12);
    const std::tuple<std::uint32_t, int, int> cases[] = {
        // identifier, index, position or -1
        {10, -1, 0},  {10, 0, 0},        {10, 1, 2},         {10, 2, 4},
        {10, 3, -1},  {10, 1, 2},        {20, 0, 1},         {40, -1, -1},
        {10, -2, -1}, {kAnyBlock, 3, 3}, {kAnyBlock, 5, -1}, {kAnyBlock, -1, -1}};
    for (const auto& [id, index, position] : cases) {
        CZurRawBlock* expected = nullptr;
        list.ChildAt(position, expected);
        EXPECT_EQ(list.FindChild(id, index), expected) << id << " " << index;
    }
    // What a search remembers must not outlive a child's new name or another order.
    EXPECT_NE(list.FindChild(10, 2), nullptr);
    list.FindChild(kAnyBlock, 2)->SetID(20);
    EXPECT_EQ(list.FindChild(10, 2), nullptr);
    EXPECT_EQ(list.FindChild(10, 1), list.FindChild(kAnyBlock, 4));
    list.AddChild(std::make_unique<CZurIntParamBlock>(10U), 0);
    EXPECT_EQ(list.FindChild(10, 1), list.FindChild(kAnyBlock, 1));
    list.RemoveAt(0);
    list.RemoveAt(0);
    EXPECT_EQ(list.FindChild(10, 0), list.FindChild(kAnyBlock, 3));
    EXPECT_EQ(list.RemoveOccurrence(20, 1), 1);
    EXPECT_EQ(list.RemoveOccurrence(20, 1), 3);
    EXPECT_EQ(list.RemoveOccurrence(20, -1), 3);
    EXPECT_THAT(list.Values(), ElementsAre(1, 3, 4));
    EXPECT_EQ(list.GetLength(), 4U + 3 * 12);
}

TEST(Composite, PutsAChildInItsPlace) {
    const std::vector<std::uint32_t> appended{0, 1, 2, 9};  // the new child has the value 9
    const std::tuple<std::uint32_t, int, std::vector<std::uint32_t>, int> cases[] = {
        {kAnyBlock, -1, appended, -1}, {kAnyBlock, 3, appended, 3}, {kAnyBlock, 1, {0, 9, 2}, 1},
        {10, 1, {0, 1, 9}, 2},         {10, 0, {9, 1, 2}, 0},       {10, 2, appended, 3},
        {10, -1, appended, 3},         {40, 0, appended, 3}};
    for (const auto& [id, index, values, indexAfter] : cases) {
        Plain list;
        list.Fill({10, 20, 10});
        st_paramChild record{id, index, new CZurIntParamBlock(77U, 9)};
        EXPECT_TRUE(list.Set(7, &record, kSizeParamChild));
        EXPECT_EQ(list.Values(), values) << id << " " << index;
        EXPECT_EQ(record.index, indexAfter) << id << " " << index;
        EXPECT_EQ(record.block->GetID(), 77U);
    }
    Plain list;
    list.Fill({10, 20});
    st_paramChild own{20, 0, list.FindChild(20, 0)};
    EXPECT_TRUE(list.Set(7, &own, kSizeParamChild)) << "put into its own place";
    own.id = 10;
    EXPECT_FALSE(list.Set(7, &own, kSizeParamChild)) << "cannot be owned twice";
    own.block = nullptr;
    EXPECT_FALSE(list.Set(7, &own, kSizeParamChild));
    EXPECT_THAT(list.Values(), ElementsAre(0, 1));
}

TEST(Composite, AnswersTheGeneralRequests) {
    Plain list;
    list.Fill({10, 20, 10});
    st_paramValue value{-1, 0};
    EXPECT_TRUE(list.Get(6, &value, kSizeParamValue));
    EXPECT_EQ(value.value, 3U);
    value.selector = 10;
    EXPECT_TRUE(list.Get(6, &value, kSizeParamValue));
    EXPECT_EQ(value.value, 2U);

    std::uint32_t number = 55;
    st_paramData data{10, 1, &number, 4};
    EXPECT_TRUE(list.Set(8, &data, kSizeParamData));
    EXPECT_THAT(list.Values(), ElementsAre(0, 1, 55));
    data.index = 5;
    EXPECT_FALSE(list.Set(8, &data, kSizeParamData));
    EXPECT_FALSE(list.Get(8, &data, kSizeParamData));
    data = {10, 1, &number, 0};
    EXPECT_FALSE(list.Set(8, &data, kSizeParamData));
    data = {10, 1, nullptr, 4};
    EXPECT_FALSE(list.Set(8, &data, kSizeParamData) || list.Set(8, nullptr, kSizeParamData));

    t_paramIdList ids;
    EXPECT_TRUE(list.Get(3, &ids, kSizeIdList) && list.Get(4, &ids, kSizeIdList));
    EXPECT_EQ(ids.size(), 14U);
    EXPECT_FALSE(list.Get(9, &value, kSizeParamValue) || list.Set(5, &value, kSizeParamValue));
    EXPECT_FALSE(list.Do(14, &value, kSizeParamValue) || list.Get(7, &data, kSizeParamData));

    value.value = 7;
    EXPECT_TRUE(list.Do(9, &value, kSizeParamValue)) << "nothing at that position";
    EXPECT_FALSE(list.Do(9, &value, 4));
    value.value = 10;
    EXPECT_TRUE(list.Do(10, &value, kSizeParamValue));
    EXPECT_THAT(ChildIds(list), ElementsAre(20));
    EXPECT_EQ(list.GetLength(), 4U + 12);
    EXPECT_TRUE(list.Do(12, nullptr, 0) && list.Do(13, nullptr, 0) && list.Do(11, nullptr, 0));
    EXPECT_EQ(WrittenHex(list), "00 00 00 00 00 00 00 04 00 00 00 00");
    for (const std::uint32_t request : {0U, 1U}) {
        value.value = request + 7;
        EXPECT_TRUE(list.Set(request, &value, kSizeParamValue));
        EXPECT_FALSE(list.Set(request, &value, 4));
    }
    EXPECT_TRUE(list.Get(0, &value, kSizeParamValue) && value.value == 7 && list.GetLength() == 8);
    EXPECT_TRUE(list.Get(1, &value, kSizeParamValue) && value.value == 8);
}

TEST(Composite, EqualityAndAssignmentGoByOrderAndIdentifier) {
    Plain one;
    Plain other;
    EXPECT_TRUE(one.IsEqual(other));
    one.Fill({10, 20});
    EXPECT_FALSE(one.IsEqual(other));
    other = one;
    EXPECT_TRUE(one.IsEqual(other));
    other.Fill({30});
    other.RemoveAt(0);
    EXPECT_FALSE(one.IsEqual(other)) << "as many, but others";
    other.SetID(1);
    other = one;
    EXPECT_THAT(ChildIds(other), ElementsAre(20, 30)) << "another identifier: nothing happens";
    one = *&one;
    EXPECT_THAT(ChildIds(one), ElementsAre(10, 20));
}

TEST(Composite, ReadsNoMoreChildrenThanTheStreamHolds) {
    const std::string stored =
        Bytes("00 00 00 05 00 00 00 00 FF FF FF FF 00 00 00 07 FF FF FF FF AB CD");
    Plain tree;
    Source source(stored);
    tree.ReadTree(&source.stream);
    EXPECT_EQ(tree.GetID(), 5U) << "the stored identifier is kept";
    EXPECT_EQ(WrittenHex(tree),
              "00 00 00 05 00 00 00 0E 00 00 00 01 00 00 00 07 00 00 00 02 AB CD");
    Source again(stored);
    st_paramStream record{0, 0, 0, &again.stream};
    EXPECT_TRUE(tree.Set(2, &record, kSizeParamStream)) << "empties first";
    EXPECT_THAT(ChildIds(tree), ElementsAre(7));
    record.stream = nullptr;
    EXPECT_FALSE(tree.Set(2, &record, kSizeParamStream));
    EXPECT_FALSE(tree.Get(2, &record, kSizeParamStream));
    CZurBlockVector untyped(0);
    Source third(stored);
    untyped.Read(&third.stream, true);
    EXPECT_EQ(untyped.Count(), 1);
}

TEST(CompositeParamBlock, HoldsOwnsAndForwards) {
    CZurCPB block(3U);
    st_paramValue record{-1, 42};
    EXPECT_TRUE(block.GetParam(2902, &record, kSizeParamValue)) << "nothing held: all succeed";
    EXPECT_TRUE(block.SetParam(4, &record, kSizeIdList) && block.DoParam(9, nullptr, 0));
    EXPECT_EQ(record.value, 42U);
    EXPECT_FALSE(block.GetParam(2902, nullptr, kSizeParamValue));
    EXPECT_EQ(WrittenHex(block), "00 00 00 03 00 00 00 00");

    auto* composite = new Plain;
    composite->Fill({10});
    record.reference = composite;
    EXPECT_TRUE(block.SetParam(50, &record, kSizeParamValue));
    EXPECT_TRUE(block.SetParam(50, &record, kSizeParamValue)) << "the same again";
    EXPECT_EQ(Held(block), composite);
    EXPECT_EQ(Number(block, 6), 1);
    EXPECT_EQ(Number(block, 0), 3) << "0 to 4 are the block's own";
    EXPECT_FALSE(block.SetParam(4, &record, kSizeIdList)) << "goes to the composite, which refuses";
    EXPECT_EQ(WrittenHex(block),
              "00 00 00 03 00 00 00 18 00 00 00 00 00 00 00 10 00 00 00 01 "
              "00 00 00 0A 00 00 00 04 00 00 00 00");

    // Comparing with a leaf must not take its bytes for a reference, nor write beyond them.
    EXPECT_FALSE(block.IsEqual(CZurShortParamBlock(3U, 4)));
    EXPECT_FALSE(block.IsEqual(CZurCPB(3U)));
    EXPECT_TRUE(CZurCPB(3U).IsEqual(CZurCPB(4U)));
    EXPECT_EQ(block.GetByteAt(0), 0);
    EXPECT_TRUE(SetNumber(block, 1, 5));
    EXPECT_EQ(Held(block), nullptr) << "with another length it counts as holding nothing";
    EXPECT_TRUE(block.DoParam(51, nullptr, 0));
}

}  // namespace
