#pragma once

#include "DataCopy.h"
#include "Hands.h"

#include "demo/Greenhouse.h"
#include "support/StageTest.h"

#include <array>
#include <map>
#include <memory>
#include <string>
#include <vector>

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

/// The stage of the tests, for a program that is none.
class CStage : public GfxTest::CStageTest
{
public:
    using CStageTest::Advance;
    using CStageTest::FreshPicture;
    using CStageTest::Settle;
    using CStageTest::SetUpStage;
    using CStageTest::WaitForClippedRedraws;
    using CStageTest::Widgets;
};

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
    struct SWidget
    {
        std::map<std::string, std::string> properties;
        /// The text as it is to be written, if it is localised.
        std::string localisedText;
        std::vector<Gfx::Widgets::SListBoxItem> items;
        std::string firstItem;
    };

    /// Keeps how the widgets of an element's children are.
    void Note(const Core::IO::XMLNode& a_element, const std::string& a_path);
    void NoteWidget(const std::string& a_path, const std::string& a_text);
    void LeaveWidget(const std::string& a_path) const;
    /// True if there was nothing to set back.
    bool SetBack(const std::string& a_path, const SWidget& a_first);
    static void ReadLayouts(bool a_remake);
    /// Fails if one is still there afterwards.
    void ForgetFormerWidgets() const;
    void CloseBoxes();
    void TapOn(const std::string& a_path);
    [[nodiscard]] GfxTest::WidgetPtr Find(const std::string& a_path) const;
    void StartProgram();

    CDataCopy m_data;
    std::unique_ptr<CHands> m_hands;
    std::unique_ptr<Demo::CGreenhouse> m_program;
    /// By their paths, those of layouts that aren't on the screen too.
    std::map<std::string, SWidget> m_first;
    std::map<std::string, GfxTest::WidgetPtr> m_roots;
    std::map<std::string, std::size_t> m_looks;
    int m_toMinute = 0;
    int m_toCleanUp = 0;
    long m_applied = 0;
};

} // namespace Soak
