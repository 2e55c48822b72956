#pragma once

#include "support/StageTest.h"
#include "support/TemporaryDirectory.h"

#include <array>
#include <functional>
#include <initializer_list>
#include <set>
#include <string>
#include <utility>

namespace GfxTest
{

/// A widget that writes the calls it gets into a log that all such widgets share: "name:Call ".
class CRecordingWidget : public Gfx::Widgets::CWidget
{
public:
    using CPoint = Gfx::Common::CPoint;
    using EMouseEvent = Gfx::Events::EMouseEvent;

    CRecordingWidget(const std::string& a_name, int a_x, int a_y, int a_width, int a_height, int a_priority = 100)
        : CWidget(a_name, "Recorder", a_x, a_y, a_width, a_height, false)
    {
        InitialiseClutterGroup();
        MousePriority(a_priority);
        SetMouseEventHandler(&m_mouseHandler);
        SetSelectedChangedEventHandler(&m_selectedHandler);
        s_living.insert(this);
    }

    ~CRecordingWidget() override { s_living.erase(this); }

    /// The log so far; it starts anew.
    static std::string TakeLog() { return std::exchange(s_log, {}); }
    static const std::set<CRecordingWidget*>& Living() { return s_living; }

    /// Runs after each entry, as a handler of the application would, with the widget and the call.
    static inline std::function<void(CRecordingWidget&, const std::string&)> s_hook;

    static std::string Entry(const std::string& a_widget, const std::string& a_call)
    {
        return a_widget + ':' + a_call + ' ';
    }

    static std::string Describe(const std::string& a_call, const CPoint& a_point)
    {
        return a_call + '(' + std::to_string(a_point.X()) + ',' + std::to_string(a_point.Y()) + ')';
    }

    /// "FirstDown(buttons;x,y)", with ";remote" where that is set.
    static std::string Describe(EMouseEvent a_event, int a_buttons, const CPoint& a_point, bool a_remote)
    {
        static const std::array<const char*, 14> s_names{
            "NoEvent",    "Leave",    "Enter",       "Move",      "FirstDown", "FirstUp",    "FirstClick",
            "SecondDown", "SecondUp", "SecondClick", "ThirdDown", "ThirdUp",   "ThirdClick", "NonClientHit"};
        return std::string(s_names.at(a_event)) + '(' + std::to_string(a_buttons) + ';' + std::to_string(a_point.X()) +
               ',' + std::to_string(a_point.Y()) + (a_remote ? ";remote)" : ")");
    }

    bool Draggable() const override { return draggable; }
    bool StartDragging(const CPoint& a_point) override
    {
        m_dragging = acceptsDrag && admitsDrag;
        Record(Describe("StartDragging", a_point));
        return acceptsDrag;
    }
    void UpdateDragging(const CPoint& a_displacement) override { Record(Describe("UpdateDragging", a_displacement)); }
    void EndDragging() override
    {
        m_dragging = false;
        Record("EndDragging");
    }
    bool IsDragging() const override { return m_dragging || CWidget::IsDragging(); }
    bool TransparentOnDrag() const override { return transparentOnDrag; }

    void KeyboardEvent(unsigned int a_key) override { Record("Key(" + std::to_string(a_key) + ')'); }
    void Idle() override
    {
        Record("Idle");
        CWidget::Idle();
    }
    void UpdateStyle() override
    {
        Record("UpdateStyle");
        CWidget::UpdateStyle();
    }
    void UpdateLocalisedText() override
    {
        Record("UpdateLocalisedText");
        CWidget::UpdateLocalisedText();
    }

    bool draggable = false;
    /// What StartDragging returns, and whether IsDragging is true afterwards.
    bool acceptsDrag = true;
    bool admitsDrag = true;
    bool transparentOnDrag = false;

private:
    void Record(const std::string& a_call)
    {
        s_log += Entry(Name(), a_call);
        if (const auto hook = s_hook)
        {
            hook(*this, a_call);
        }
    }

    void OnMouse(CWidget*, EMouseEvent a_event, int a_buttons, const CPoint& a_point, bool a_remote)
    {
        Record(Describe(a_event, a_buttons, a_point, a_remote));
    }
    void OnSelected(CWidget*, bool a_selected) { Record(a_selected ? "Select" : "Deselect"); }

    static inline std::string s_log;
    static inline std::set<CRecordingWidget*> s_living;

    Core::Functor<void, CWidget*, EMouseEvent, int, const CPoint&, bool>::Method<CRecordingWidget> m_mouseHandler{
        this, &CRecordingWidget::OnMouse};
    Core::Functor<void, CWidget*, bool>::Method<CRecordingWidget> m_selectedHandler{this,
                                                                                    &CRecordingWidget::OnSelected};
    bool m_dragging = false;
};

using RecorderPtr = Core::SharedPtr<CRecordingWidget>;

/// Tests with recording widgets, which nothing but the stage keeps alive.
class CRecordingTest : public CStageTest
{
protected:
    void TearDown() override
    {
        CRecordingWidget::s_hook = nullptr;
        DestroyAll();
        CStageTest::TearDown();
    }

    /// The stage with another touch box than the usual one of a single pixel.
    static void SetUpTouch(int a_area, int a_offset)
    {
        const CTemporaryDirectory directory;
        directory.WriteRequiredFiles();
        directory.Write("Configuration/GfxConfig.xml", "<Gfx><General><TouchArea>" + std::to_string(a_area) +
                                                           "</TouchArea><TouchOffset>" + std::to_string(a_offset) +
                                                           "</TouchOffset></General></Gfx>");
        SetUpStage(directory.Path());
    }

    static RecorderPtr Top(const std::string& a_name, int a_x = 0, int a_y = 0, int a_width = 10, int a_height = 10,
                           int a_priority = 100)
    {
        const RecorderPtr widget(new CRecordingWidget(a_name, a_x, a_y, a_width, a_height, a_priority));
        Widgets().AddWidget(widget);
        return widget;
    }

    static RecorderPtr Child(const WidgetPtr& a_parent, const std::string& a_name, int a_x = 0, int a_y = 0,
                             int a_width = 10, int a_height = 10, int a_priority = 100)
    {
        return AddChild(*a_parent, new CRecordingWidget(a_name, a_x, a_y, a_width, a_height, a_priority));
    }

    static void DestroyAll()
    {
        for (CRecordingWidget* widget : std::set(CRecordingWidget::Living()))
        {
            if (CRecordingWidget::Living().count(widget) != 0 && widget->Parent() == nullptr)
            {
                Widgets().DestroyWidget(widget);
            }
        }
    }

    struct SStep
    {
        Gfx::Events::EMouseEvent event;
        int x;
        int y;
        int buttons = 1;
        bool remote = false;
    };

    /// What some events bring about.
    static std::string Play(std::initializer_list<SStep> a_steps)
    {
        CRecordingWidget::TakeLog();
        for (const SStep& step : a_steps)
        {
            Widgets().MouseEvent(step.event, step.buttons, {step.x, step.y}, step.remote);
        }
        return CRecordingWidget::TakeLog();
    }

    /// Which widget an event at a point goes to: its name, or nothing.
    static std::string TargetAt(int a_x, int a_y)
    {
        Play({{Gfx::Events::Move, -1000, -1000}});
        const std::string log = Play({{Gfx::Events::NoEvent, a_x, a_y}});
        return log.substr(0, log.find(':'));
    }
};

} // namespace GfxTest
