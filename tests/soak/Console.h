#pragma once

#include "DataCopy.h"
#include "FirstValues.h"
#include "Hands.h"
#include "Roots.h"

#include "demo/Greenhouse.h"

#include <array>
#include <map>
#include <memory>
#include <string>

namespace Soak
{

/// What is known of a screen that can be brought up again and again.
struct SState
{
    const char* page;
    const char* theme;
    const char* language;

    [[nodiscard]] std::string Name() const;
};

constexpr std::array k_pages{"Climate", "Irrigation", "Plants",  "House",      "History",
                             "Alarms",  "Settings",   "Network", "Calibration"};
constexpr std::array k_themes{"Day", "Night", "Contrast"};
constexpr std::array k_languages{"en", "de"};
constexpr SState k_home{"Climate", "Day", "en"};

/// The demo in use: the program, its widgets, and the data that they come from.
class CConsole
{
public:
    CConsole();

    [[nodiscard]] CHands& Hands() { return *m_hands; }
    [[nodiscard]] CDataCopy& Data() { return m_data; }

    /// Time passes, by the clock that the toolkit reads: timers, idle rounds, and minutes of the greenhouse.
    void Pass(int a_milliseconds);

    /// As the buttons of its pages do it.
    void Notify(const char* a_notification, const std::string& a_parameter);

    /// Reads the data directory again. If layouts may have been made anew, another program takes over.
    void Reload();

    /// Takes a layout off the screen, if it is there, and applies it.
    void Apply(const std::string& a_layout);

    /// A random widget on the screen, or none.
    [[nodiscard]] GfxTest::WidgetPtr AnyWidget(const Chance& a_chance);

    /// The state, whatever has happened before: another program, every property and item of a list as it was in the
    /// beginning, nobody touching anything.
    void BringTo(const SState& a_state);

    /// Ends the program and all widgets, and makes everything anew.
    void Rebuild();

    /// Compares what the last frames have left on the screen with all of it painted anew.
    void CheckRepaint();

    /// Compares the state with how it looked when it was made of nothing; a_anew makes it of nothing now.
    void CheckState(const SState& a_state, bool a_anew);

    [[nodiscard]] long Applied() const { return m_applied; }

private:
    void CloseBoxes();
    void TapOn(const std::string& a_path);
    void StartProgram();

    CDataCopy m_data;
    std::unique_ptr<CHands> m_hands;
    std::unique_ptr<Demo::CGreenhouse> m_program;
    CRoots m_roots;
    CFirstValues m_first{m_roots};
    std::map<std::string, std::size_t> m_looks;
    int m_toMinute = 0;
    int m_toCleanUp = 0;
    long m_applied = 0;
};

} // namespace Soak
