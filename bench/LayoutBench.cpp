// Screens from files: what their elements cost to make, a screen from its file, switches among screens, and actions.

#include "BenchStage.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace
{

using Bench::WidgetPtr;
using Core::Patterns::StaticSingleton;

Gfx::Managers::CLayoutManager& Layouts()
{
    return StaticSingleton<Gfx::Managers::CLayoutManager>::ref();
}

/// Where layout files are written to; removed at the end.
class CFolder
{
public:
    CFolder()
    {
        std::string path = (std::filesystem::temp_directory_path() / "gfx-bench-XXXXXX").string();
        Bench::Require(mkdtemp(path.data()) != nullptr, "no folder for files");
        m_path = path;
    }
    ~CFolder()
    {
        std::error_code error;
        std::filesystem::remove_all(m_path, error);
    }
    CFolder(const CFolder&) = delete;
    CFolder& operator=(const CFolder&) = delete;

    /// Writes a file of one layout; returns its path.
    [[nodiscard]] std::string Write(const std::string& a_id, const std::string& a_elements) const
    {
        const std::string path = m_path + "/" + a_id + ".xml";
        std::ofstream(path) << "<Layouts>\n<Layout id=\"" << a_id << "\">\n" << a_elements << "</Layout>\n</Layouts>\n";
        return path;
    }

private:
    std::string m_path;
};

const CFolder& Folder()
{
    static const CFolder s_folder;
    return s_folder;
}

/// An id that no layout has had so far, since a layout is made only once.
std::string NewId()
{
    static int s_count = 0;
    return "layout" + std::to_string(++s_count);
}

std::string Place(const std::string& a_id, int a_x, int a_y, int a_width, int a_height)
{
    return " id=\"" + a_id + "\" x=\"" + std::to_string(a_x) + "\" y=\"" + std::to_string(a_y) + "\" width=\"" +
           std::to_string(a_width) + "\" height=\"" + std::to_string(a_height) + "\"";
}

/// Panels, of so many elements with their own: buttons that do something, labels, check boxes, progress bars and
/// images.
std::string Elements(int a_count, int a_perPanel = 10)
{
    std::string text;
    for (int i = 0; i < a_count; ++i)
    {
        const int place = i % a_perPanel == 0 ? 0 : 1 + i % 9;
        const std::string number = std::to_string(i);
        const std::string where = Place("e" + number, 10 + place % 3 * 250, 10 + place / 3 * 100, 230, 90);
        if (place == 0)
        {
            text += (i > 0 ? "</Panel>\n<Panel" : "<Panel") + Place("p" + number, 0, 0, 800, 480) + ">\n";
        }
        else if (place < 4)
        {
            text += "<Button" + where + " text=\"Button " + number +
                    "\"><Events><Click><SetFlag id=\"pressed\" value=\"" + number + "\"/></Click></Events></Button>\n";
        }
        else if (place < 7)
        {
            text += "<Label" + where + " text=\"Label " + number + "\"/>\n";
        }
        else if (place == 7)
        {
            text += "<CheckBox" + where + " text=\"Choice " + number + "\"/>\n";
        }
        else if (place == 8)
        {
            text += "<ProgressBar" + where + " current=\"50\"/>\n";
        }
        else
        {
            text += "<Image" + where + " image=\"Arrow_Left\"/>\n";
        }
    }
    return text + "</Panel>\n";
}

void Destroy(const std::string& a_layout)
{
    for (const WidgetPtr& widget : Layouts().RetrieveLayout(a_layout))
    {
        Bench::Widgets().DestroyWidget(widget.Get());
    }
    Bench::Widgets().GarbageCollect();
}

/// Reading the file, and making the widgets, per element; Growth is to the least number of elements.
void Build(benchmark::State& a_state)
{
    static double s_fewest = 0;
    const int count = static_cast<int>(a_state.range(0));
    const std::string elements = Elements(count, static_cast<int>(a_state.range(1)));
    double readSeconds = 0;
    double buildSeconds = 0;
    double bytes = 0;
    for (auto _ : a_state)
    {
        const std::string id = NewId();
        const std::string path = Folder().Write(id, elements);
        const double before = Bench::HeapInUse();
        const Bench::CStopwatch reading;
        Layouts().ParseLayoutFile(path);
        readSeconds += reading.Seconds();
        const Bench::CStopwatch building;
        Bench::Require(!Layouts().RetrieveLayout(id).empty(), "no layout");
        buildSeconds += building.Seconds();
        bytes += Bench::HeapInUse() - before;
    }
    const double each = 1 / (static_cast<double>(a_state.iterations()) * count);
    const double seconds = (readSeconds + buildSeconds) * each;
    if (s_fewest == 0)
    {
        s_fewest = seconds;
    }
    a_state.counters["ReadUs"] = readSeconds * each * 1e6;
    a_state.counters["BuildUs"] = buildSeconds * each * 1e6;
    a_state.counters["Us"] = seconds * 1e6;
    a_state.counters["Growth"] = seconds / s_fewest;
    a_state.counters["Bytes"] = bytes * each;
}

std::string ReferenceScreen()
{
    std::string text = "<Panel" + Place("screen", 0, 0, 800, 480) + ">\n<Label" + Place("title", 10, 8, 400, 28) +
                       " text=\"Settings\" wrap=\"False\"/>\n";
    const auto button = [&text](int a_number, int a_x, int a_y, int a_width, const std::string& a_text)
    {
        const std::string id = "button" + std::to_string(a_number);
        text += "<Button" + Place(id, a_x, a_y, a_width, 44) + " text=\"" + a_text +
                "\"><Events><Click><Property id=\"title\" name=\"Text\" value=\"" + a_text +
                "\"/></Click></Events></Button>\n";
    };
    for (int i = 0; i < 12; ++i)
    {
        button(i, 10 + i % 3 * 130, 44 + i / 3 * 52, 120, "Button " + std::to_string(i));
    }
    for (int i = 0; i < 8; ++i)
    {
        button(12 + i, 410, 8 + i * 48, 310, "Row number " + std::to_string(i));
    }
    std::string words;
    for (int i = 0; i < 12; ++i)
    {
        words += "Turn left at the lights ";
    }
    return text + "<Scrollbar" + Place("scroll", 730, 8, 60, 380) + " style=\"Vertical\" current=\"30\"/>\n" +
           "<ProgressBar" + Place("progress", 10, 262, 380, 24) + " current=\"60\"/>\n<CheckBox" +
           Place("check", 10, 300, 180, 32) + " text=\"Check box\"/>\n<RadioGroup>\n<RadioButton" +
           Place("first", 10, 340, 180, 32) + " text=\"First choice\" checked=\"True\"/>\n<RadioButton" +
           Place("second", 200, 340, 180, 32) + " text=\"Second choice\"/>\n</RadioGroup>\n<Label" +
           Place("text", 10, 384, 780, 90) + " text=\"" + words + "\"/>\n</Panel>\n";
}

/// From the file to the widgets on the stage, once everything that they need has been loaded by others.
void ReferenceScreenFromItsFile(benchmark::State& a_state)
{
    const std::string elements = ReferenceScreen();
    double seconds = 0;
    bool isWarm = false;
    const auto show = [&]
    {
        const std::string id = NewId();
        const std::string path = Folder().Write(id, elements);
        const Bench::CStopwatch stopwatch;
        Layouts().ParseLayoutFile(path);
        Layouts().ApplyLayout(id);
        seconds += isWarm ? stopwatch.Seconds() : 0;
        Bench::Require(static_cast<bool>(Bench::Widgets().FindWidget("screen:second", nullptr)), "no screen");
        Bench::PaintStage();
        Destroy(id);
    };
    show();
    isWarm = true;
    for (auto _ : a_state)
    {
        show();
    }
    a_state.counters["Milliseconds"] = seconds / static_cast<double>(a_state.iterations()) * 1e3;
}

/// One screen goes and another one comes, which has been made before, with a frame for each round of them. The heap is
/// looked at once the renderer has found its size.
void Switch(benchmark::State& a_state)
{
    constexpr int layouts = 5;
    constexpr int warmUps = 200;
    constexpr int switches = 10'000;
    std::vector<std::string> ids;
    for (int i = 0; i < layouts; ++i)
    {
        ids.push_back(NewId());
        Layouts().ParseLayoutFile(Folder().Write(ids.back(), i == 0 ? ReferenceScreen() : Elements(10 * i)));
    }
    double growth = 0;
    double seconds = 0;
    for (auto _ : a_state)
    {
        const auto show = [&](int a_number)
        {
            const Bench::CStopwatch stopwatch;
            Destroy(ids[static_cast<std::size_t>((a_number + layouts - 1) % layouts)]);
            Layouts().ApplyLayout(ids[static_cast<std::size_t>(a_number % layouts)]);
            seconds += stopwatch.Seconds();
            if (a_number % layouts == 0)
            {
                Bench::PaintStage();
            }
        };
        for (int i = 0; i < warmUps; ++i)
        {
            show(i);
        }
        const double before = Bench::HeapInUse();
        seconds = 0;
        for (int i = 0; i < switches; ++i)
        {
            show(i);
        }
        growth = Bench::HeapInUse() - before;
    }
    Destroy(ids[layouts - 1]);
    a_state.counters["SwitchUs"] = seconds / switches * 1e6;
    a_state.counters["HeapGrowth"] = growth;
}

/// A list of 1,000 steps: conditions on other widgets' properties, and properties that are set.
void Actions(benchmark::State& a_state)
{
    constexpr int steps = 1000;
    std::string list;
    for (int i = 0; i < steps / 4; ++i)
    {
        const std::string label = "l" + std::to_string(i % 40);
        list += "<Condition type=\"==\" lhs=\"" + label + ">Visible\" rhs=\"True\"><Property id=\"" + label +
                "\" name=\"Opacity\" value=\"" + std::to_string(50 + i % 50) +
                "\"/></Condition>\n<SetFlag id=\"last\" value=\"" + label + "\"/>\n<BringToFront id=\"" + label +
                "\"/>\n";
    }
    std::string elements = "<Panel" + Place("panel", 0, 0, 800, 480) + ">\n";
    for (int i = 0; i < 40; ++i)
    {
        elements += "<Label" + Place("l" + std::to_string(i), i % 8 * 100, 100 + i / 8 * 30, 90, 28) + "/>\n";
    }
    elements +=
        "<Button" + Place("run", 0, 0, 100, 40) + "><Events><Click>" + list + "</Click></Events></Button>\n</Panel>\n";
    const std::string id = NewId();
    Layouts().ParseLayoutFile(Folder().Write(id, elements));
    Layouts().ApplyLayout(id);
    const WidgetPtr button = Bench::Widgets().FindWidget("panel:run", nullptr);
    Bench::Require(static_cast<bool>(button), "no button");
    const Bench::CStopwatch stopwatch;
    for (auto _ : a_state)
    {
        button->MouseEvent(Gfx::Events::FirstClick, 1, {5, 5}, false);
    }
    const double seconds = stopwatch.Seconds() / static_cast<double>(a_state.iterations());
    Bench::Require(Layouts().GetFlag("last") == "l9", "the list hasn't run");
    Destroy(id);
    a_state.counters["StepUs"] = seconds / steps * 1e6;
}

BENCHMARK(Build)->Args({100, 10})->Iterations(20)->Unit(benchmark::kMillisecond);
BENCHMARK(Build)->Args({1000, 10})->Iterations(5)->Unit(benchmark::kMillisecond);
BENCHMARK(Build)->Args({10000, 10})->Iterations(3)->Unit(benchmark::kMillisecond);
BENCHMARK(Build)->Args({100, 10000})->Iterations(20)->Unit(benchmark::kMillisecond);
BENCHMARK(Build)->Args({1000, 10000})->Iterations(5)->Unit(benchmark::kMillisecond);
BENCHMARK(Build)->Args({10000, 10000})->Iterations(3)->Unit(benchmark::kMillisecond);
BENCHMARK(ReferenceScreenFromItsFile)->Iterations(100)->Unit(benchmark::kMillisecond);
BENCHMARK(Switch)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(Actions)->Iterations(200)->Unit(benchmark::kMillisecond);

} // namespace
