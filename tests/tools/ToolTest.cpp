// The command-line tool, run as a user runs it.

#include "support/TemporaryDirectory.h"

#include <gio/gio.h>
#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace
{

template <typename T>
using Owner = std::unique_ptr<T, decltype(&g_object_unref)>;

struct SResult
{
    int exit = -1;
    std::string out;
    std::string err;
};

Owner<GSubprocess> Start(std::vector<std::string> a_arguments, GSubprocessFlags a_flags)
{
    std::vector<const char*> pointers{GFX_TOOL};
    for (const std::string& argument : a_arguments)
    {
        pointers.push_back(argument.c_str());
    }
    pointers.push_back(nullptr);
    return {g_subprocess_newv(pointers.data(), a_flags, nullptr), g_object_unref};
}

SResult RunTool(const std::vector<std::string>& a_arguments)
{
    const Owner<GSubprocess> process = Start(
        a_arguments, static_cast<GSubprocessFlags>(G_SUBPROCESS_FLAGS_STDOUT_PIPE | G_SUBPROCESS_FLAGS_STDERR_PIPE));
    char* out = nullptr;
    char* err = nullptr;
    if (!process || !g_subprocess_communicate_utf8(process.get(), nullptr, nullptr, &out, &err, nullptr))
    {
        return {};
    }
    SResult result{g_subprocess_get_if_exited(process.get()) ? g_subprocess_get_exit_status(process.get()) : -1, out,
                   err};
    g_free(out);
    g_free(err);
    return result;
}

bool Has(const std::string& a_text, const std::string& a_part)
{
    return a_text.find(a_part) != std::string::npos;
}

class ToolTest : public testing::Test
{
protected:
    ToolTest()
    {
        m_data.Write("Configuration/ThemeConfig.xml",
                     "<Themes default='One'><Theme id='One'/><Theme id='Two'/></Themes>");
        m_data.Write("Configuration/GfxConfig.xml", "<Gfx/>");
        m_data.Write("TextureMaps/TextureConfig.xml", "<Textures/>");
        m_data.Write("Localisation/de.xml", "<Localisation language='de'><Text id='hello'>Hallo</Text></Localisation>");
        WriteLabel("");
    }

    void WriteLabel(const std::string& a_attributes)
    {
        m_data.Write("Layouts/Main.xml", "<Layouts><Layout id='Main'>\n<Label id='greeting' x='3' y='4' "
                                         "text='Localised:hello' " +
                                             a_attributes + "/></Layout><Layout id='a/b'/></Layouts>");
    }

    GfxTest::CTemporaryDirectory m_data;
};

TEST_F(ToolTest, AWrongCommandLineIsExplained)
{
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{},
                                                      {"paint"},
                                                      {"tree"},
                                                      {"tree", "a", "b"},
                                                      {"tree", "--what", "a"},
                                                      {"tree", "--size", "8", "a"},
                                                      {"tree", "--size", "0x9", "a"},
                                                      {"tree", "--size", "8x9px", "a"},
                                                      {"shot", "a"},
                                                      {"model"},
                                                      {"model", "a", "b"},
                                                      {"model", "a", "-o", "b.obj"}})
    {
        const SResult result = RunTool(arguments);
        EXPECT_EQ(result.exit, 2) << testing::PrintToString(arguments);
        EXPECT_TRUE(Has(result.err, "help") || Has(result.err, ".bobj")) << result.err;
        EXPECT_EQ(result.out, "");
    }
    EXPECT_EQ(RunTool({"--help"}).exit, 0);
    const SResult help = RunTool({"shot", "--help"});
    EXPECT_EQ(help.exit, 0);
    EXPECT_TRUE(Has(help.out, "--theme"));
}

TEST_F(ToolTest, CheckSaysWhereAMistakeIs)
{
    EXPECT_EQ(RunTool({"check", m_data.Path()}).exit, 0);
    WriteLabel("colour='Red'");
    const SResult result = RunTool({"check", m_data.Path()});
    EXPECT_EQ(result.exit, 1);
    EXPECT_EQ(result.err, m_data.Path() + "Layouts/Main.xml:2:1: Label has no attribute colour\n");
    EXPECT_EQ(RunTool({"check", m_data.Path() + "none"}).exit, 1);
}

TEST_F(ToolTest, TreePrintsTheWidgetsOfALayout)
{
    const SResult result = RunTool({"tree", "--language", "de", m_data.Path()});
    EXPECT_EQ(result.exit, 0) << result.err;
    EXPECT_EQ(result.out.find("<Widget type=\"Label\" id=\"greeting\">"), 0U);
    EXPECT_TRUE(Has(result.out, "<Param id=\"Text\" value=\"Hallo\"/>")) << result.out;
    const SResult missing = RunTool({"tree", "--layout", "Other", m_data.Path()});
    EXPECT_EQ(missing.exit, 1);
    EXPECT_TRUE(Has(missing.err, "no layout Other")) << missing.err;
    EXPECT_TRUE(Has(missing.err, "Main, a/b")) << missing.err;
    EXPECT_EQ(RunTool({"tree", "--theme", "Three", m_data.Path()}).exit, 1);
    EXPECT_EQ(RunTool({"tree", "--language", "xx", m_data.Path()}).exit, 1);
    EXPECT_EQ(RunTool({"tree", m_data.Path() + "Layouts"}).exit, 1);
}

TEST_F(ToolTest, ModelConvertsAndSaysWhatIsInAModel)
{
    const std::string points = "v 1 0 0\nv 2 0 -7.5\nv 3 0 0\nvt 0 0\n";
    const std::string text =
        m_data.Write("a.obj", points + "f 1/1/1 2/1/1 3/1/1 1/1/1\ng a\ng b\nf 1/1/1 2/1/1 3/1/1 # end\n");
    const std::string binary = m_data.Path() + "a.bobj";
    const SResult result = RunTool({"model", text});
    EXPECT_EQ(result.exit, 0) << result.err;
    EXPECT_EQ(result.out, "groups 2\ntriangles 3\nextent 7.5\n");
    EXPECT_EQ(RunTool({"model", text, "-o", binary}).exit, 0);
    EXPECT_EQ(RunTool({"model", binary}).out, result.out);
    EXPECT_EQ(RunTool({"model", text, "-o", m_data.Path() + "none/a.bobj"}).exit, 1);
    EXPECT_EQ(RunTool({"model", m_data.Path()}).exit, 1);
    EXPECT_EQ(RunTool({"model", m_data.Write("empty.bobj", "")}).exit, 1);
    for (const char* cut : {"f ", "f 1/1/1 2/1", "f 1/1/1 2/1/1 ", "f 1/1/1 2/1/1 3/", "f 1/1/1 2/1/1 3/1/1 1"})
    {
        const SResult refused = RunTool({"model", m_data.Write("cut.obj", points + cut), "-o", binary});
        EXPECT_EQ(refused.exit, 1) << cut;
        EXPECT_TRUE(Has(refused.err, "cut.obj:5: a ")) << refused.err;
    }
}

TEST_F(ToolTest, WidgetsAreTouchedFirstAndStagesAreShown)
{
    m_data.Write("Layouts/Tap.xml", R"(<Layouts><Layout id="Tap">
        <WizardStage id="stage"/>
        <Button id="first" x="0" y="0" width="50" height="50"><Events><Click>
            <Property id="second" name="Visible" value="True"/>
        </Click></Events></Button>
        <Button id="second" x="0" y="100" width="50" height="50" visible="False"><Events><Click>
            <Property id="word" name="Text" value="touched"/>
        </Click></Events></Button>
        <Label id="word" x="100" y="0"/>
    </Layout></Layouts>)");
    const SResult result = RunTool({"tree", "--layout", "Tap", "--tap", "first", "--tap", "second", m_data.Path()});
    EXPECT_EQ(result.exit, 0) << result.err;
    EXPECT_TRUE(Has(result.out, "value=\"touched\"")) << result.out;
    EXPECT_TRUE(Has(result.out, "id=\"stage\"")) << result.out;
    const SResult missing = RunTool({"tree", "--layout", "Tap", "--tap", "third", m_data.Path()});
    EXPECT_EQ(missing.exit, 1);
    EXPECT_TRUE(Has(missing.err, "no widget third")) << missing.err;
}

TEST_F(ToolTest, ShotWritesAPictureForEachCombination)
{
    const std::string out = m_data.Path() + "out/shots";
    const SResult result = RunTool({"shot", "--layout", "all", "--theme", "all", "--language", "all", "--size",
                                    "320x200", "--output", out, m_data.Path()});
    ASSERT_EQ(result.exit, 0) << result.err;
    std::size_t count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(out))
    {
        ++count;
        std::ifstream file(entry.path(), std::ios::binary);
        std::stringstream content;
        content << file.rdbuf();
        if (entry.path().extension() == ".png")
        {
            // The sizes in the header of a PNG.
            EXPECT_EQ(content.str().substr(16, 8), std::string("\0\0\1\x40\0\0\0\xC8", 8));
        }
        else if (entry.path().filename() == "Main-Two-de.xml")
        {
            EXPECT_TRUE(Has(content.str(), "Hallo"));
        }
        else if (entry.path().filename() == "index.html")
        {
            EXPECT_TRUE(Has(content.str(), "<img src=\"a_b-One-en.png\""));
        }
    }
    EXPECT_EQ(count, 2U * 2 * 2 * 2 + 1);
    m_data.Write("file", "");
    EXPECT_EQ(RunTool({"shot", "--output", m_data.Path() + "file", m_data.Path()}).exit, 1);
}

/// The lines of an interface that runs, and what becomes of it.
class CView
{
public:
    explicit CView(const std::string& a_directory)
        : m_process(Start({"view", a_directory}, G_SUBPROCESS_FLAGS_STDERR_PIPE))
        , m_lines(g_data_input_stream_new(g_subprocess_get_stderr_pipe(m_process.get())), g_object_unref)
    {
    }
    ~CView() { g_subprocess_force_exit(m_process.get()); }

    /// Whether such a line comes before the stream ends; a test that waits in vain is ended by its time limit.
    bool Says(const std::string& a_part)
    {
        while (char* line = g_data_input_stream_read_line(m_lines.get(), nullptr, nullptr, nullptr))
        {
            const bool found = Has(line, a_part);
            g_free(line);
            if (found)
            {
                return true;
            }
        }
        return false;
    }

private:
    Owner<GSubprocess> m_process;
    Owner<GDataInputStream> m_lines;
};

TEST_F(ToolTest, ViewTakesChangesOverAndSurvivesMistakes)
{
    CView view(m_data.Path());
    EXPECT_TRUE(view.Says("watching"));
    WriteLabel("colour='Red'");
    EXPECT_TRUE(view.Says("Main.xml:2:1: Label has no attribute colour"));
    m_data.Write("Layouts/Main.xml", "<Layouts>\n<Layout></Layouts>");
    EXPECT_TRUE(view.Says("Main.xml:2:"));
    EXPECT_TRUE(view.Says("stays"));
    m_data.Write("Configuration/ThemeConfig.xml", "<Themes");
    EXPECT_TRUE(view.Says("ThemeConfig.xml:1:"));
    m_data.Write("Configuration/ThemeConfig.xml", "<Themes default='One'><Theme id='One'/></Themes>");
    WriteLabel("");
    EXPECT_TRUE(view.Says("read again"));
    std::filesystem::create_directory(m_data.Path() + "Layouts/More");
    EXPECT_TRUE(view.Says("read again"));
}

} // namespace
