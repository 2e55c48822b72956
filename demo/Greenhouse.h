#pragma once

#include "demo/GreenhouseView.h"
#include "demo/Simulation.h"

#include <Gfx/Gfx.h>

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace Demo
{

/// The program behind the layouts of a greenhouse: it shows the state of a simulation by properties of widgets, and
/// does what the layouts' notifications ask for. It lives to the end of the process, as the widgets do, unless another
/// one takes over.
class CGreenhouse
{
public:
    /// Puts the first page on the stage. The widgets may have had another program before.
    CGreenhouse();
    ~CGreenhouse();

    /// Lets go of the widgets: the last thing that it does. For those who read layouts anew while the program runs,
    /// and want another one for them.
    void Leave();

    /// A minute of the greenhouse passes.
    void Step();

    [[nodiscard]] const SSimulation& Simulation() const { return m_simulation; }

private:
    using CWidget = Gfx::Widgets::CWidget;
    using WidgetPtr = CWidget::WidgetPtr;

    struct SAlarm
    {
        enum EState
        {
            esNone,
            esNew,
            esSeen
        };

        const char* id;
        const char* text;
        bool (*isCause)(const SSimulation& a_simulation);
        EState state = esNone;
        int since = 0;
    };

    void MakeScreens();
    void MakeNetwork();
    void MakeWizard();
    void MakeHistory();
    void AddHandlers();
    void On(const std::string& a_notification, std::function<void(const std::string&)> a_action);

    /// By the path of the widget, which needn't be on the stage.
    template <typename WidgetT>
    [[nodiscard]] WidgetT* Find(const std::string& a_path) const;
    [[nodiscard]] bool IsChecked(const std::string& a_path) const;
    void Set(const std::string& a_path, const std::string& a_property, const std::string& a_value) const;
    void SetBool(const std::string& a_path, const std::string& a_property, bool a_value) const;

    /// Shows what the simulation says.
    void Show();
    void ShowClimate() const;
    void ShowWater() const;
    void ShowHistory();

    void CheckAlarms();
    void ShowAlarm(const std::string& a_id) const;
    void ListAlarm(const SAlarm& a_alarm) const;
    void ClearAlarm(const std::string& a_id);

    void ChangeSetPoint(const std::string& a_change);
    void SetTheme(const std::string& a_theme);
    void SetLanguage(const std::string& a_language);
    void FinishSetup();
    void NoteTouch(const std::string& a_target);
    void EndCalibration() const;

    SSimulation m_simulation;
    std::array<SAlarm, 4> m_alarms;
    /// The widgets at the top of all layouts, by their names.
    std::map<std::string, WidgetPtr> m_screens;
    /// By their notifications.
    std::map<std::string, std::unique_ptr<Gfx::Managers::CLayoutManager::NotificationHandler>> m_handlers;
    CGreenhouseView* m_view = nullptr;
    int m_shownVents = -1;
    Core::SharedPtr<Gfx::Widgets::CWizard> m_wizard;
    std::unique_ptr<Gfx::Widgets::CWizard::NavigateHandler> m_navigate;
    std::unique_ptr<CWidget::MouseHandler> m_onAddress;
    Gfx::Widgets::CGraph* m_graph = nullptr;
    int m_historyHours = 24;
    /// Where targets were, and what the panel said when they were touched.
    std::vector<Gfx::Common::CPoint> m_targets;
    std::vector<Gfx::Common::CPoint> m_touches;
};

} // namespace Demo
