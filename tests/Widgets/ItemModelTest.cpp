#include "Widgets/ItemModel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace
{

struct SItem
{
    std::string id;
    std::string text;
    bool selected = false;
};

using Model = Gfx::Widgets::CItemModel<SItem>;

/// What the model must agree with: a walk over the items.
int FirstOf(const std::vector<SItem>& a_items, const std::string& a_id)
{
    const auto found =
        std::find_if(a_items.begin(), a_items.end(), [&a_id](const SItem& a_item) { return a_item.id == a_id; });
    return found != a_items.end() ? static_cast<int>(found - a_items.begin()) : -1;
}

TEST(ItemModelTest, AgreesWithAWalkOverTheItemsWhateverIsDoneToThem)
{
    std::mt19937 random(1);
    const auto below = [&random](std::size_t a_end) { return random() % a_end; };
    // Few ids, so that most stand more than once.
    const auto id = [&below] { return std::string("id") + std::to_string(below(12)); };
    Model model;
    std::vector<SItem> expected;
    std::vector<Model::Key> keys;
    std::vector<Model::Key> formerKeys;
    for (int step = 0; step < 4000; ++step)
    {
        const SItem item{id(), std::to_string(step), below(4) == 0};
        const std::size_t index = expected.empty() ? 0 : below(expected.size());
        switch (expected.size() > 30 ? 2 : below(expected.empty() ? 2 : 8))
        {
        case 0:
            model.Add(item, true);
            expected.push_back(item);
            keys.push_back(model.KeyAt(expected.size() - 1));
            break;
        case 1:
            model.Add(item, false);
            expected.insert(expected.begin(), item);
            keys.insert(keys.begin(), model.KeyAt(0));
            break;
        case 2:
        {
            formerKeys.push_back(keys[index]);
            model.Remove(index);
            expected.erase(expected.begin() + static_cast<std::ptrdiff_t>(index));
            keys.erase(keys.begin() + static_cast<std::ptrdiff_t>(index));
            break;
        }
        case 3:
            model.Replace(index, item);
            expected[index] = item;
            break;
        case 4:
            model.Select(index, item.selected);
            expected[index].selected = item.selected;
            break;
        case 5:
        case 6:
            model.Select(item.id, item.selected);
            for (SItem& other : expected)
            {
                other.selected = other.id == item.id ? item.selected : other.selected;
            }
            break;
        default:
            model.ClearSelection();
            std::for_each(expected.begin(), expected.end(), [](SItem& a_item) { a_item.selected = false; });
            break;
        }

        std::string joined;
        bool isFirst = true;
        ASSERT_EQ(model.Items().size(), expected.size());
        for (std::size_t i = 0; i < expected.size(); ++i)
        {
            ASSERT_EQ(model.Items()[i].text, expected[i].text) << step;
            ASSERT_EQ(model.Items()[i].selected, expected[i].selected) << step;
            ASSERT_EQ(model.Find(keys[i]), &model.Items()[i]) << step << ": an item keeps its key";
            if (expected[i].selected)
            {
                joined += (isFirst ? "" : ",") + expected[i].text;
                isFirst = false;
            }
        }
        ASSERT_EQ(model.JoinSelected(&SItem::text), joined) << step;
        for (const Model::Key key : formerKeys)
        {
            ASSERT_EQ(model.Find(key), nullptr) << step << ": no item has the key of a former one";
        }
        const auto found = model.IndexOf(item.id);
        ASSERT_EQ(found ? static_cast<int>(*found) : -1, FirstOf(expected, item.id)) << step;
    }
    model.Clear();
    EXPECT_FALSE(model.IndexOf("id1"));
    EXPECT_EQ(model.JoinSelected(&SItem::id), "");
    // An item of the list itself.
    model.Add({"a", "", true}, true);
    model.Add(model.Items()[0], false);
    model.Replace(1, model.Items()[0]);
    model.Replace(1, model.Items()[1]);
    EXPECT_EQ(model.JoinSelected(&SItem::id), "a,a");
}

} // namespace
