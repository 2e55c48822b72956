#include "Widgets/WidgetStatus.h"

#include "support/StageTest.h"
#include "support/TemporaryDirectory.h"

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

namespace
{

using Gfx::Colours::Red;
using Gfx::Widgets::CWidgetStatus;
using GfxTest::CBlock;
using GfxTest::WidgetPtr;

class WidgetStatusTest : public GfxTest::CStageTest
{
};

std::string Dump(const std::string& a_type, const std::string& a_id, const std::string& a_geometry,
                 const std::string& a_more = "", const std::string& a_children = "")
{
    return "<Widget type=\"" + a_type + "\" id=\"" + a_id + "\">\n<Parameters>\n" + a_geometry + a_more +
           "</Parameters>\n" + a_children + "</Widget>\n";
}

std::string Values(const std::vector<int>& a_values)
{
    std::string text;
    const char* const names[] = {"X", "Y", "Width", "Height", "Visible", "Enabled", "Selected"};
    for (std::size_t i = 0; i < std::size(names); ++i)
    {
        text += "<Param id=\"" + std::string(names[i]) + "\" value=\"" + std::to_string(a_values.at(i)) + "\"/>\n";
    }
    return text;
}

std::string Content(const std::string& a_path)
{
    std::ifstream file(a_path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Does something in the middle of a dump.
class CMeddler : public CBlock
{
public:
    CMeddler() : CBlock("meddler", 0, 0, 1, 1, Red) {}
    void UpdateCustomInfo() override { meddle(); }

    std::function<void()> meddle = [] {};
};

TEST_F(WidgetStatusTest, TheDumpHasTheWidgetAndWhatShowsOfItsDescendants)
{
    const auto root = AddTopLevel(new CBlock("root", 1, -2, 300, 200, Red));
    const auto first = AddChild(*root, new CBlock("a<1>", 3, 4, 50, 60, Red));
    const auto hidden = AddChild(*root, new CBlock("hidden", 0, 0, 1, 1, Red));
    const auto last = AddChild(*root, new CBlock("last", 7, 8, 9, 10, Red));
    const auto unseen = AddChild(*last, new CBlock("unseen", 0, 0, 1, 1, Red));
    hidden->Hide();
    unseen->Hide();
    first->Disable();
    last->Select();
    first->SetProperty("Z", "'\"&<>");
    first->SetProperty("Key&", "");

    const std::string firstDump = Dump("Block", "root:a&lt;1&gt;", Values({3, 4, 50, 60, 1, 0, 0}),
                                       "<Param id=\"Key&\" value=\"\"/>\n"
                                       "<Param id=\"Z\" value=\"&apos;&quot;&amp;&lt;&gt;\"/>\n");
    const std::string lastDump =
        Dump("Block", "root:last", Values({7, 8, 9, 10, 1, 1, 1}), "", "<Children>\n</Children>\n");
    const std::string rootDump = Dump("Block", "root", Values({1, -2, 300, 200, 1, 1, 1}), "",
                                      "<Children>\n" + firstDump + lastDump + "</Children>\n");
    EXPECT_EQ(root->GetWidgetInfo(), rootDump);
    EXPECT_EQ(last->Status().GetFileContents(), lastDump) << "a child's status holds its own part";
    EXPECT_EQ(unseen->GetWidgetInfo(), Dump("Block", "root:last:unseen", Values({0, 0, 1, 1, 0, 1, 0})));

    AddTopLevel(new CBlock("cover", 0, -10, 400, 300, Red));
    EXPECT_EQ(root->GetWidgetInfo(),
              Dump("Block", "root", Values({1, -2, 300, 200, 1, 1, 0}), "", "<Children>\n</Children>\n"));
}

TEST_F(WidgetStatusTest, LongNamesAreWhole)
{
    CWidgetStatus status;
    const std::string type(100000, 't');
    const std::string id(100000, '&');
    status.UpdateStatus(id, type, -2147483647 - 1, 2147483647, 0, 0, false, false, false, nullptr);
    EXPECT_EQ(status.GetFileContents(), Dump(type, CWidgetStatus::EncodeStringForOutput(id),
                                             Values({-2147483647 - 1, 2147483647, 0, 0, 0, 0, 0})));
    EXPECT_EQ(CWidgetStatus::EncodeStringForOutput("<a&b>"), "&lt;a&amp;b&gt;");
    EXPECT_EQ(CWidgetStatus::EncodeStringForOutput(id).size(), 500000U);
    EXPECT_EQ(CWidgetStatus::EncodeStringForOutput(""), "");
}

TEST_F(WidgetStatusTest, WidgetsThatVanishMeanwhileAreLeftOut)
{
    auto* const root = new CBlock("root", 0, 0, 9, 9, Red);
    Widgets().AddWidget(WidgetPtr(root));
    auto* const meddler = new CMeddler;
    root->AddChild(WidgetPtr(meddler));
    auto* const victim = new CBlock("victim", 0, 0, 1, 1, Red);
    root->AddChild(WidgetPtr(victim));
    meddler->meddle = [&] { root->DestroyChild(victim); };
    const std::string dump = root->GetWidgetInfo();
    EXPECT_NE(dump.find("root:meddler"), std::string::npos);
    EXPECT_EQ(dump.find("victim"), std::string::npos);

    meddler->meddle = [&]
    {
        Widgets().DestroyWidget(root);
        Widgets().GarbageCollect();
    };
    EXPECT_NE(root->GetWidgetInfo().find("root:meddler"), std::string::npos);
    EXPECT_EQ(Widgets().FindWidget("root", nullptr).Get(), nullptr);
}

TEST_F(WidgetStatusTest, AWidgetKeepsTheFileThatItHasChosenAndOverwritesNoOther)
{
    const GfxTest::CTemporaryDirectory folder;
    const std::string& path = folder.Path();
    const auto root = AddTopLevel(new CBlock("root", 0, 0, 9, 9, Red));
    const auto twin = AddTopLevel(new CBlock("root", 0, 0, 5, 5, Red));
    EXPECT_FALSE(root->Status().WriteToFile(""));
    const std::string dump = root->GetWidgetInfo();
    ASSERT_TRUE(root->Status().WriteToFile(path));
    EXPECT_EQ(Content(path + "root.xml"), dump);
    const std::string twinDump = twin->GetWidgetInfo();
    ASSERT_TRUE(twin->Status().WriteToFile(path.substr(0, path.size() - 1)));
    EXPECT_EQ(Content(path + "root_1.xml"), twinDump);

    root->SetName("other");
    const std::string newDump = root->GetWidgetInfo();
    ASSERT_TRUE(root->Status().WriteToFile("/elsewhere"));
    EXPECT_EQ(Content(path + "root.xml"), newDump);
    EXPECT_EQ(Content(path + "root_1.xml"), twinDump);

    CWidgetStatus third;
    third.SetWidgetName(std::string("root\0x", 6));
    ASSERT_TRUE(third.WriteToFile(path));
    EXPECT_TRUE(std::filesystem::exists(path + "root_2.xml"));

    std::filesystem::remove(path + "root.xml");
    std::filesystem::create_symlink("/dev/full", path + "root.xml");
    EXPECT_FALSE(root->Status().WriteToFile(path)) << "a full disk";

    CWidgetStatus lost;
    EXPECT_FALSE(lost.WriteToFile(path + "missing"));
    std::filesystem::create_directory(path + "missing");
    EXPECT_TRUE(lost.WriteToFile(path)) << "the file was chosen by the first call";
    EXPECT_TRUE(std::filesystem::exists(path + "missing/unknown.xml"));
}

} // namespace
