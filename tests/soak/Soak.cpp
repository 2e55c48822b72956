// The demo, used at random for a while: real events, switches of theme, language and layouts, data that changes and
// breaks. In between it has to come back to states that look as if they had just been made, and nothing may grow.

#include "Caches.h"
#include "Console.h"
#include "Gauges.h"
#include "Report.h"

#include <glib.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>

namespace
{

using namespace Soak;
using Core::Patterns::StaticSingleton;
using Gfx::Common::CPoint;

constexpr int k_stepsPerRound = 60;
constexpr int k_layoutsPerRound = 100;
/// In bytes per round, in a long run; a byte lost with each layout that is applied makes more than 100.
constexpr double k_heapLimit = 1000;
/// One block lost with every twentieth layout.
constexpr double k_blockLimit = 5;
/// A texture or a descriptor that is lost in every tenth round.
constexpr double k_countLimit = 0.1;

struct SOptions
{
    double minutes = 5;
    unsigned long seed = 0;
};

class CSoak
{
public:
    explicit CSoak(const SOptions& a_options) : m_options(a_options), m_random(a_options.seed) {}

    void Run()
    {
        CountHeap();
        if (m_options.minutes >= 1)
        {
            // What is kept of a page, a theme and a language from its first use on shall not look like growth.
            FillActorNumbers();
            for (const char* theme : k_themes)
            {
                for (const char* page : k_pages)
                {
                    for (const char* language : k_languages)
                    {
                        m_console.CheckState({page, theme, language}, false);
                        FillGlyphs();
                    }
                }
            }
        }
        const auto start = std::chrono::steady_clock::now();
        const auto minutes = [&start]
        { return std::chrono::duration<double, std::ratio<60>>(std::chrono::steady_clock::now() - start).count(); };
        double said = 0;
        for (; m_rounds == 0 || minutes() < m_options.minutes; ++m_rounds)
        {
            Round();
            if (minutes() - said >= 1)
            {
                said = minutes();
                Summarise(said);
            }
        }
        Summarise(minutes());
        for (const CTrend* trend : {&m_heap, &m_blocks, &m_textures, &m_descriptors})
        {
            Say("  " + trend->Summary());
        }
    }

private:
    int Chance(int a_count)
    {
        // The library's distributions differ from one to the next.
        return a_count > 0 ? static_cast<int>(m_random() % static_cast<unsigned>(a_count)) : 0;
    }

    void Step(const std::string& a_what)
    {
        NoteStep(a_what);
        ++m_steps;
    }

    void Round()
    {
        for (int i = 0; i < k_stepsPerRound; ++i)
        {
            AnyStep();
            // Touches of the calibration's targets would turn the screen upside down.
            auto& input = StaticSingleton<Gfx::Managers::CInputManager>::ref();
            input.UseCalibration(Gfx::Managers::CInputManager::k_identity);
            CheckOutput(m_console.Data().IsDamaged());
            if (i % 10 == 9)
            {
                NoteStep("compare with a full repaint");
                m_console.CheckRepaint();
            }
        }
        if (m_console.Data().IsChanged())
        {
            Restore();
        }
        SwitchLayouts(k_layoutsPerRound);
        const SState state{k_pages[Chance(k_pages.size())], k_themes[Chance(k_themes.size())],
                           k_languages[Chance(k_languages.size())]};
        m_console.CheckState(state, m_rounds % k_roundsPerValue == 0);
        m_console.BringTo(k_home);
        // Those of other themes, which a reload has left to be read when they are needed.
        StaticSingleton<Gfx::Managers::CTextureManager>::ref().LoadTextures();
        CheckOutput(false);
        m_heap.Add(static_cast<double>(Heap().bytes));
        m_blocks.Add(static_cast<double>(Heap().blocks));
        m_textures.Add(static_cast<double>(Textures()));
        m_descriptors.Add(Descriptors());
        for (const CTrend* trend : {&m_heap, &m_blocks, &m_textures, &m_descriptors})
        {
            if (const std::string fault = trend->Fault(); !fault.empty())
            {
                Fail(fault);
            }
        }
    }

    void AnyStep()
    {
        struct SKind
        {
            int weight;
            void (CSoak::*step)();
        };
        static constexpr SKind k_kinds[] = {
            {14, &CSoak::TapAnywhere}, {24, &CSoak::TapWidget}, {14, &CSoak::Drag},      {10, &CSoak::Keys},
            {3, &CSoak::Wheel},        {12, &CSoak::Wait},      {5, &CSoak::SetTheme},   {5, &CSoak::SetLanguage},
            {6, &CSoak::FewLayouts},   {2, &CSoak::Shoot},      {5, &CSoak::ChangeData},
        };
        int total = 0;
        for (const SKind& kind : k_kinds)
        {
            total += kind.weight;
        }
        int chosen = Chance(total);
        for (const SKind& kind : k_kinds)
        {
            if ((chosen -= kind.weight) < 0)
            {
                (this->*kind.step)();
                return;
            }
        }
    }

    static std::string Text(const CPoint& a_point)
    {
        return std::to_string(a_point.X()) + ',' + std::to_string(a_point.Y());
    }

    CPoint AnyPoint() { return {Chance(800), Chance(480)}; }

    CPoint AnyPointOnWidget(std::string& a_name)
    {
        const GfxTest::WidgetPtr widget = m_console.AnyWidget([this](int a_count) { return Chance(a_count); });
        if (!widget)
        {
            return AnyPoint();
        }
        a_name = widget->Name();
        const CPoint corner = widget->AbsoluteTopLeft();
        return {std::clamp(corner.X() + Chance(widget->Width()), 0, 799),
                std::clamp(corner.Y() + Chance(widget->Height()), 0, 479)};
    }

    void TapAnywhere()
    {
        const CPoint point = AnyPoint();
        Step("tap " + Text(point));
        m_console.Hands().Tap(point.X(), point.Y());
    }

    void TapWidget()
    {
        std::string name;
        const CPoint point = AnyPointOnWidget(name);
        const bool isLong = Chance(8) == 0;
        const unsigned button = Chance(10) == 0 ? 3 : 1;
        Step((isLong ? "hold " : "tap ") + Text(point) + " (" + name + ") with button " + std::to_string(button));
        m_console.Hands().MoveTo(point.X(), point.Y());
        m_console.Hands().Press(button);
        if (isLong)
        {
            m_console.Pass(1500);
        }
        m_console.Hands().Release(button);
    }

    void Drag()
    {
        std::string name;
        const CPoint from = AnyPointOnWidget(name);
        // Beyond the edges, too.
        const CPoint to{Chance(1000) - 100, Chance(680) - 100};
        const int moves = 1 + Chance(8);
        const int interruption = Chance(4) == 0 ? Chance(4) : -1;
        Step("drag " + Text(from) + " (" + name + ") to " + Text(to) + " in " + std::to_string(moves));
        CHands& hands = m_console.Hands();
        hands.MoveTo(from.X(), from.Y());
        hands.Press(1);
        for (int i = 1; i <= moves; ++i)
        {
            hands.MoveTo(std::max(from.X() + (to.X() - from.X()) * i / moves, 0),
                         std::max(from.Y() + (to.Y() - from.Y()) * i / moves, 0));
            if (i == moves / 2)
            {
                Interrupt(interruption);
            }
        }
        hands.Release(1);
    }

    /// Something else, while a button is held.
    void Interrupt(int a_how)
    {
        switch (a_how)
        {
        case 0: SetTheme(); break;
        case 1: FewLayouts(); break;
        case 2: m_console.Pass(600); break;
        case 3: Keys(); break;
        default: break;
        }
    }

    void Keys()
    {
        const int count = 1 + Chance(6);
        for (int i = 0; i < count; ++i)
        {
            const int which = Chance(60);
            const unsigned long key = which < 26   ? XK_a + static_cast<unsigned long>(which)
                                      : which < 36 ? XK_0 + static_cast<unsigned long>(which - 26)
                                                   : k_specialKeys[which % static_cast<int>(k_specialKeys.size())];
            const bool isShifted = Chance(5) == 0;
            Step("key " + std::to_string(key) + (isShifted ? " shifted" : ""));
            m_console.Hands().Key(key, isShifted);
        }
    }

    void Wheel()
    {
        Step("wheel");
        m_console.Hands().Scroll(Chance(2) == 0);
    }

    void Wait()
    {
        const int time = 100 * (1 + Chance(30));
        Step("wait " + std::to_string(time));
        m_console.Pass(time);
    }

    void SetTheme()
    {
        const std::string theme = k_themes[Chance(k_themes.size())];
        Step("theme " + theme);
        m_console.Notify("Theme", theme);
    }

    void SetLanguage()
    {
        const std::string language = k_languages[Chance(k_languages.size())];
        Step("language " + language);
        m_console.Notify("Language", language);
    }

    void FewLayouts() { SwitchLayouts(1 + Chance(10)); }

    void SwitchLayouts(int a_count)
    {
        // The stages belong to the wizard.
        static constexpr std::array k_layouts{"Main",   "Irrigation", "Plants",  "House",      "History",
                                              "Alarms", "Settings",   "Network", "Calibration"};
        for (int i = 0; i < a_count; ++i)
        {
            const std::string layout = k_layouts[Chance(k_layouts.size())];
            Step("layout " + layout);
            m_console.Apply(layout);
            if (Chance(4) == 0)
            {
                StaticSingleton<Gfx::Managers::CWidgetManager>::ref().GarbageCollect();
            }
            Pump();
        }
    }

    void Shoot()
    {
        Step("pictures");
        auto& gfx = StaticSingleton<Gfx::Managers::CGfxManager>::ref();
        if (gfx.ScreenShot().empty() || gfx.TrueScreenShot().empty())
        {
            Fail("no picture");
        }
    }

    void ChangeData()
    {
        const auto chance = [this](int a_count) { return Chance(a_count); };
        CDataCopy& data = m_console.Data();
        switch (data.IsChanged() ? 3 : Chance(3))
        {
        case 0: Step(data.Touch(chance)); break;
        case 1: Step(data.Change(chance)); break;
        case 2: Step(data.Damage(chance)); break;
        default: Restore(); return;
        }
        m_console.Reload();
    }

    void Restore()
    {
        Step("restore");
        const bool wasDamaged = m_console.Data().IsDamaged();
        m_console.Data().Restore();
        m_console.Reload();
        CheckOutput(wasDamaged);
    }

    void Summarise(double a_minutes)
    {
        char text[240];
        std::snprintf(
            text, sizeof text,
            "soak: %.1f minutes, %d rounds, %ld steps, %ld events, %ld layouts applied; heap %.1f MB (with the "
            "driver's %.1f), textures %ld, descriptors %d",
            a_minutes, m_rounds, m_steps, m_console.Hands().Events(), m_console.Applied(),
            static_cast<double>(Heap().bytes) / 1e6, WholeHeap() / 1e6, Textures(), Descriptors());
        Say(text);
    }

    SOptions m_options;
    std::mt19937_64 m_random;
    CConsole m_console;
    CTrend m_heap{"heap in bytes", k_heapLimit};
    CTrend m_blocks{"blocks of it", k_blockLimit};
    CTrend m_textures{"textures", k_countLimit};
    CTrend m_descriptors{"descriptors", k_countLimit};
    int m_rounds = 0;
    long m_steps = 0;
};

bool ReadOptions(int a_argc, char** a_argv, SOptions& a_options)
{
    for (int i = 1; i < a_argc; ++i)
    {
        const std::string option = a_argv[i];
        char* end = nullptr;
        if (i + 1 == a_argc)
        {
            return false;
        }
        const char* const value = a_argv[++i];
        if (option == "--minutes")
        {
            a_options.minutes = std::strtod(value, &end);
        }
        else if (option == "--seed")
        {
            a_options.seed = std::strtoul(value, &end, 10);
        }
        else if (option == "--pictures")
        {
            PictureFolder() = std::string(value) + '/';
            continue;
        }
        if (end == nullptr || end == value || *end != '\0')
        {
            return false;
        }
    }
    return true;
}

/// Has GLib's own allocator keep nothing back: it reads the setting when the process starts.
void UsePlainAllocation(char** a_argv)
{
    if (std::getenv("G_SLICE") == nullptr)
    {
        setenv("G_SLICE", "always-malloc", 1);
        execv("/proc/self/exe", a_argv);
    }
}

} // namespace

int main(int a_argc, char** a_argv)
{
    SOptions options;
    options.seed =
        static_cast<unsigned long>(std::chrono::system_clock::now().time_since_epoch().count() / 1000 % 1'000'000'000);
    if (!ReadOptions(a_argc, a_argv, options))
    {
        std::fprintf(stderr, "usage: %s [--minutes NUMBER] [--seed NUMBER] [--pictures FOLDER]\n", a_argv[0]);
        return 2;
    }
    if (std::getenv("DISPLAY") == nullptr)
    {
        std::fputs("soak: no display\n", stderr);
        return 3;
    }
    UsePlainAllocation(a_argv);
    StartReport(options.seed);
    Say("soak: " + std::to_string(options.minutes) + " minutes, --seed " + std::to_string(options.seed));
    {
        // Not destroyed: the widgets live to the end of the process.
        auto* const soak = new CSoak(options);
        soak->Run();
    }
    Say("soak: passed");
    EndReport();
    return 0;
}
