#include "demo/Greenhouse.h"

#include <clutter/clutter.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <iterator>
#include <utility>

namespace Demo
{

using Core::Patterns::StaticSingleton;
using Gfx::Common::CPoint;
using Gfx::Managers::CLayoutManager;
using Gfx::Managers::CWidgetManager;
using namespace Gfx::Widgets;

namespace
{

constexpr int k_minutesPerDay = 24 * 60;
constexpr const char* k_localised = "Localised:";
constexpr const char* k_address = "Network:Entries:Address";
constexpr std::array k_stages{"SetupLanguage", "SetupPlants", "SetupControl"};

/// What the set-up makes of what grows in the greenhouse.
struct SKind
{
    const char* id;
    double temperature;
    double humidity;
};
constexpr std::array k_kinds{SKind{"Vegetables", 22, 65}, SKind{"Herbs", 20, 55}, SKind{"Fruit", 18, 60},
                             SKind{"Flowers", 21, 70}};

/// A line of the graph, and what fills its scale.
struct SLine
{
    const char* name;
    const char* colour;
    double SSimulation::*value;
    double full;
};
constexpr std::array k_lines{SLine{"Temperature", "Chocolate", &SSimulation::temperature, 40},
                             SLine{"Humidity", "DodgerBlue", &SSimulation::humidity, 100},
                             SLine{"Light", "DarkGoldenRod", &SSimulation::light, 60}};

CLayoutManager& Layouts()
{
    return StaticSingleton<CLayoutManager>::ref();
}

CWidgetManager& Widgets()
{
    return StaticSingleton<CWidgetManager>::ref();
}

Gfx::Managers::CThemeManager& Themes()
{
    return StaticSingleton<Gfx::Managers::CThemeManager>::ref();
}

Gfx::Managers::CInputManager& Input()
{
    return StaticSingleton<Gfx::Managers::CInputManager>::ref();
}

Core::Localisation::CManager& Languages()
{
    return *Core::Localisation::CManager::Instance();
}

std::string Whole(double a_value, const std::string& a_unit)
{
    return std::to_string(std::lround(a_value)) + ' ' + a_unit;
}

/// With one digit behind the decimal point, or comma.
std::string Tenths(double a_value, const std::string& a_unit)
{
    const long tenths = std::lround(a_value * 10);
    const char* point = Languages().Language() == "de" ? "," : ".";
    return (tenths < 0 ? "-" : "") + std::to_string(std::labs(tenths) / 10) + point +
           std::to_string(std::labs(tenths) % 10) + ' ' + a_unit;
}

/// A time of the day.
std::string Clock(int a_minutes)
{
    const int minute = (a_minutes % k_minutesPerDay + k_minutesPerDay) % k_minutesPerDay;
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%02d:%02d", minute / 60, minute % 60);
    return text.data();
}

/// Makes the scene in place of the empty frame that the toolkit would make.
class CViewElement : public Gfx::Layout::CElement
{
public:
    CElement* Process(CElement* a_parent, const Core::IO::XMLNode& a_node) override
    {
        if (!PreProcess(a_node))
        {
            return nullptr;
        }
        Attach(a_parent, Hidden(new CGreenhouseView(Id(), {X(), Y(), Width(), Height()})));
        ProcessEventsOf(a_node);
        return this;
    }
};

} // namespace

CGreenhouse::CGreenhouse()
    : m_alarms{SAlarm{"Tank", "Water tank low", [](const SSimulation& a_state) { return a_state.tank < 25; },
                      SAlarm::esNew, 7 * 60 + 42},
               SAlarm{"Dry", "Bed of lettuce dry", [](const SSimulation& a_state) { return a_state.moisture[2] < 30; },
                      SAlarm::esSeen, 7 * 60 + 10},
               SAlarm{"Heat", "Too warm",
                      [](const SSimulation& a_state) { return a_state.temperature > a_state.temperatureSetPoint + 6; }},
               SAlarm{"Wind", "Strong wind", [](const SSimulation& a_state) { return a_state.IsWindy(); }}}
{
    MakeScreens();
    MakeNetwork();
    MakeWizard();
    MakeHistory();
    AddHandlers();
    SetTheme(Themes().GetTheme());
    SetLanguage(Languages().Language());
    Layouts().ApplyLayout("Main");
}

CGreenhouse::~CGreenhouse() = default;

void CGreenhouse::Leave()
{
    for (const auto& [notification, handler] : m_handlers)
    {
        Layouts().RemoveNotificationHandler(notification);
    }
    m_view->OnSelected({});
    Find<CNumericEditBox>(k_address)->SetMouseEditBoxListEventHandler(nullptr);
    Widgets().DestroyWidget(m_wizard.Get());
}

void CGreenhouse::MakeScreens()
{
    static CLayoutManager::ElementConstructor::Function s_viewElement(&Gfx::Managers::ElementBuilder<CViewElement>);
    Layouts().RegisterElementConstructor("Frame3D", &s_viewElement);
    static CLayoutManager::ElementConstructor::Function s_fieldsElement(
        &Gfx::Managers::ElementBuilder<Gfx::Layout::CNumericEditBoxElement>);
    Layouts().RegisterElementConstructor("NumericEditBox", &s_fieldsElement);
    for (const std::string& layout : Layouts().LayoutIds())
    {
        for (const WidgetPtr& widget : Layouts().RetrieveLayout(layout))
        {
            m_screens.emplace(widget->Name(), widget);
        }
    }
    m_view = Find<CGreenhouseView>("House:Scene:View");
    m_view->Reset();
    m_view->OnSelected(
        [this](const std::string& a_name)
        { Set("House:Acts:Hint", "Text", k_localised + (a_name.empty() ? "Drag to turn, touch a vent" : a_name)); });
}

void CGreenhouse::MakeNetwork()
{
    Set(k_address, "Text", "192.168.10.20 ");
    // A touch hits one of the fields, and not the box that the layout knows.
    m_onAddress.reset(Core::Functor<void, CWidget*, Gfx::Events::EMouseEvent, int, const CPoint&, bool>::Make(
        [this](CWidget*, Gfx::Events::EMouseEvent a_event, int, const CPoint&, bool)
        {
            if (a_event == Gfx::Events::FirstClick)
            {
                Set("AddressKeys", "Text", Find<CWidget>(k_address)->GetProperty("Text", ""));
                SetBool("AddressKeys", "Visible", true);
            }
        }));
    Find<CNumericEditBox>(k_address)->SetMouseEditBoxListEventHandler(m_onAddress.get());
}

void CGreenhouse::MakeWizard()
{
    m_wizard = Core::SharedPtr<CWizard>(new CWizard("Setup"));
    for (const char* stage : k_stages)
    {
        m_wizard->AddChild(m_screens[stage]);
    }
    m_navigate.reset(Core::Functor<const std::string, bool, const std::string&>::Make(
        [this](bool a_forwards, const std::string& a_stage) -> const std::string
        {
            const auto stage = std::find(k_stages.begin(), k_stages.end(), a_stage);
            const bool isEnd = a_forwards ? std::next(stage) == k_stages.end() : stage == k_stages.begin();
            if (isEnd && a_forwards)
            {
                FinishSetup();
            }
            return isEnd ? "" : *(a_forwards ? std::next(stage) : std::prev(stage));
        }));
    m_wizard->SetNavigateEventHandler(m_navigate.get());
}

void CGreenhouse::MakeHistory()
{
    m_graph = Find<CGraph>("History:Lines:Graph");
    m_graph->SetYRange(0, 100);
    m_graph->RemoveAllSeries();
    SSimulation yesterday = m_simulation;
    yesterday.time -= k_minutesPerDay;
    for (const SLine& line : k_lines)
    {
        m_graph->AddSeries(line.name, Gfx::ColourFromString(line.colour), 2.0F, k_minutesPerDay);
    }
    while (yesterday.time < m_simulation.time)
    {
        yesterday.Step();
        for (const SLine& line : k_lines)
        {
            m_graph->AddPoint(line.name, yesterday.time, 100 * yesterday.*line.value / line.full, false);
        }
    }
}

void CGreenhouse::AddHandlers()
{
    On("AddressEnd", [this](const std::string&) { Find<CNumericEditBox>(k_address)->UnHighlightActive(); });
    On("SetPoint", [this](const std::string& a_change) { ChangeSetPoint(a_change); });
    On("Vents", [this](const std::string& a_percent) { m_simulation.vents = std::stod(a_percent); });
    On("Shade", [this](const std::string& a_on) { m_simulation.isShaded = a_on == "True"; });
    On("Lamps", [this](const std::string& a_on) { m_simulation.isLit = a_on == "True"; });
    On("Water", [this](const std::string& a_bed) { m_simulation.isWatering[std::stoul(a_bed) - 1] = true; });
    On("Dry", [this](const std::string& a_bed) { m_simulation.isWatering[std::stoul(a_bed) - 1] = false; });
    On("FillTank", [this](const std::string&) { m_simulation.tank = 100; });
    On("HouseVents",
       [this](const std::string& a_percent)
       {
           SetBool("Climate:Control:Manual", "Checked", true);
           m_simulation.vents = std::stod(a_percent);
           m_shownVents = -1;
       });
    On("Range", [this](const std::string& a_hours) { m_historyHours = std::stoi(a_hours); });
    On("ShowAlarm", [this](const std::string& a_id) { ShowAlarm(a_id); });
    On("Acknowledge",
       [this](const std::string& a_id)
       {
           for (SAlarm& alarm : m_alarms)
           {
               if (alarm.id == a_id)
               {
                   alarm.state = SAlarm::esSeen;
                   ListAlarm(alarm);
               }
           }
       });
    On("ClearAlarm", [this](const std::string& a_id) { ClearAlarm(a_id); });
    On("Theme", [this](const std::string& a_theme) { SetTheme(a_theme); });
    On("Language", [this](const std::string& a_language) { SetLanguage(a_language); });
    On("Setup",
       [this](const std::string&)
       {
           Widgets().AddWidget(m_wizard);
           m_wizard->BringToFront();
           m_wizard->Show();
           m_wizard->SelectStage(k_stages.front());
       });
    On("CalibrationStart",
       [this](const std::string&)
       {
           m_targets.clear();
           m_touches.clear();
       });
    On("CalibrationTouch", [this](const std::string& a_target) { NoteTouch(a_target); });
    On("CalibrationEnd", [this](const std::string&) { EndCalibration(); });
    On("CalibrationSave", [](const std::string&) { Input().SaveCalibration(); });
}

void CGreenhouse::On(const std::string& a_notification, std::function<void(const std::string&)> a_action)
{
    using Handler = Core::Functor<bool, WidgetPtr, const std::string&, const std::string&>;
    auto& handler = m_handlers[a_notification];
    handler.reset(Handler::Make(
        [this, action = std::move(a_action)](WidgetPtr, const std::string&, const std::string& a_parameter)
        {
            action(a_parameter);
            Show();
            return true;
        }));
    Layouts().AddNotificationHandler(a_notification, handler.get());
}

template <typename WidgetT>
WidgetT* CGreenhouse::Find(const std::string& a_path) const
{
    const std::size_t colon = a_path.find(':');
    const auto screen = m_screens.find(a_path.substr(0, colon));
    WidgetPtr widget = screen != m_screens.end() ? screen->second : WidgetPtr();
    if (widget && colon != std::string::npos)
    {
        widget = Widgets().FindWidget(a_path.substr(colon + 1), widget.Get());
    }
    return dynamic_cast<WidgetT*>(widget.Get());
}

void CGreenhouse::Set(const std::string& a_path, const std::string& a_property, const std::string& a_value) const
{
    auto* const widget = Find<CWidget>(a_path);
    // What is set is drawn again, whether or not it has changed.
    if (widget != nullptr && widget->GetProperty(a_property, "") != a_value)
    {
        widget->SetProperty(a_property, a_value);
    }
}

void CGreenhouse::SetBool(const std::string& a_path, const std::string& a_property, bool a_value) const
{
    Set(a_path, a_property, a_value ? "True" : "False");
}

bool CGreenhouse::IsChecked(const std::string& a_path) const
{
    return Find<CCheckBox>(a_path)->Checked();
}

void CGreenhouse::Step()
{
    m_simulation.isAutomatic = IsChecked("Climate:Control:Automatic");
    m_simulation.Step();
    for (const auto& [box, hour] : {std::pair("Morning", 6), std::pair("Noon", 12), std::pair("Evening", 20)})
    {
        if (m_simulation.MinuteOfDay() == hour * 60 && IsChecked(std::string("Irrigation:Schedule:") + box))
        {
            m_simulation.WaterDryBeds();
        }
    }
    for (const SLine& line : k_lines)
    {
        m_graph->AddPoint(line.name, m_simulation.time, 100 * m_simulation.*line.value / line.full, false);
    }
    Show();
}

void CGreenhouse::Show()
{
    Set("Status:Clock", "Text", Clock(m_simulation.time));
    ShowClimate();
    ShowWater();
    ShowHistory();
    CheckAlarms();
    Set("Settings:Appearance:Themes", "SelectedItem", Themes().GetTheme());
    const int vents = static_cast<int>(std::lround(m_simulation.vents / 10));
    if (vents != m_shownVents)
    {
        m_shownVents = vents;
        m_view->OpenVents(static_cast<float>(m_simulation.vents / 100));
    }
}

void CGreenhouse::ShowClimate() const
{
    const auto whole = [](double a_value) { return std::to_string(std::lround(a_value)); };
    Set("Climate:Temperature:Value", "Text", Tenths(m_simulation.temperature, "°C"));
    Set("Climate:Temperature:Bar", "Current", whole(m_simulation.temperature));
    Set("Climate:Temperature:SetPoint", "Text", Whole(m_simulation.temperatureSetPoint, "°C"));
    Set("Climate:Humidity:Value", "Text", Whole(m_simulation.humidity, "%"));
    Set("Climate:Humidity:Bar", "Current", whole(m_simulation.humidity));
    Set("Climate:Humidity:SetPoint", "Text", Whole(m_simulation.humiditySetPoint, "%"));
    Set("Climate:Light:Value", "Text", Whole(m_simulation.light, "klx"));
    Set("Climate:Light:Bar", "Current", whole(m_simulation.light));
    Set("Climate:Light:SetPoint", "Text", Whole(m_simulation.lightSetPoint, "klx"));
    Set("Climate:Vents:Value", "Text", Whole(m_simulation.vents, "%"));
    Set("Climate:Vents:Opening", "Current", whole(m_simulation.vents));
    SetBool("Climate:Vents:Shade", "Checked", m_simulation.isShaded);
    SetBool("Climate:Vents:Lamps", "Checked", m_simulation.isLit);
}

void CGreenhouse::ShowWater() const
{
    for (std::size_t i = 0; i < SSimulation::k_beds; ++i)
    {
        const std::string bed = "Irrigation:Bed" + std::to_string(i + 1);
        Set(bed + ":Value", "Text", Whole(m_simulation.moisture[i], "%"));
        Set(bed + ":Bar", "Current", std::to_string(std::lround(m_simulation.moisture[i])));
        for (const char* name : {"On", "Stop"})
        {
            SetBool(bed + ':' + name, "Visible", m_simulation.isWatering[i]);
        }
        for (const char* name : {"Off", "Water"})
        {
            SetBool(bed + ':' + name, "Visible", !m_simulation.isWatering[i]);
        }
    }
    Set("Irrigation:Tank:Value", "Text", Whole(m_simulation.tank, "%"));
    Set("Irrigation:Tank:Bar", "Current", std::to_string(std::lround(m_simulation.tank)));
    SetBool("Irrigation:Tank:Empty", "Visible", m_simulation.IsTankEmpty());
    SetBool("Irrigation:Tank:Bar", "Visible", !m_simulation.IsTankEmpty());
}

void CGreenhouse::ShowHistory()
{
    const int from = m_simulation.time - m_historyHours * 60;
    m_graph->SetXRange(from, m_simulation.time);
    Set("History:Lines:From", "Text", Clock(from));
    Set("History:Lines:To", "Text", Clock(m_simulation.time));
}

void CGreenhouse::CheckAlarms()
{
    for (SAlarm& alarm : m_alarms)
    {
        if (alarm.state == SAlarm::esNone && alarm.isCause(m_simulation))
        {
            alarm.state = SAlarm::esNew;
            alarm.since = m_simulation.time;
            ListAlarm(alarm);
        }
    }
    const auto isNew = [](const SAlarm& a_alarm) { return a_alarm.state == SAlarm::esNew; };
    SetBool("Status:Bell", "Flashing", std::any_of(m_alarms.begin(), m_alarms.end(), isNew));
    m_view->SetAlarm(m_alarms[0].state != SAlarm::esNone);
    ShowAlarm(Find<CListBox>("Alarms:List")->SelectedItem());
}

void CGreenhouse::ShowAlarm(const std::string& a_id) const
{
    for (const SAlarm& alarm : m_alarms)
    {
        if (alarm.id == a_id)
        {
            const bool isGone = !alarm.isCause(m_simulation);
            const bool isNew = !isGone && alarm.state == SAlarm::esNew;
            const std::string details = "Alarms:Details:";
            for (const auto& [name, isShown] :
                 {std::pair("New", isNew), std::pair("Seen", !isGone && !isNew), std::pair("Gone", isGone)})
            {
                SetBool(details + name, "Visible", isShown);
                SetBool(details + "State" + name, "Visible", isShown);
            }
            Set(details + "Since", "Text", Clock(alarm.since));
        }
    }
}

void CGreenhouse::ListAlarm(const SAlarm& a_alarm) const
{
    auto* const list = Find<CListBox>("Alarms:List");
    const std::string text = a_alarm.text;
    SListBoxItem item(a_alarm.id, k_localised + (a_alarm.state == SAlarm::esNew ? "<b>" + text + "</b>" : text));
    const std::string selected = list->SelectedItem();
    item.selected = selected == item.id;
    list->UpdateItem(item.id, item);
    list->AddItem(item, true);
    SetBool("Alarms:None", "Visible", false);
    if (selected.empty())
    {
        list->ToggleItem(item.id, true);
    }
}

void CGreenhouse::ClearAlarm(const std::string& a_id)
{
    auto* const list = Find<CListBox>("Alarms:List");
    list->RemoveItem(a_id);
    const SAlarm* next = nullptr;
    for (SAlarm& alarm : m_alarms)
    {
        if (alarm.id == a_id)
        {
            alarm.state = SAlarm::esNone;
        }
        next = next == nullptr && alarm.state != SAlarm::esNone ? &alarm : next;
    }
    SetBool("Alarms:Details", "Visible", next != nullptr);
    SetBool("Alarms:None", "Visible", next == nullptr);
    if (next != nullptr)
    {
        list->ToggleItem(next->id, true);
    }
}

void CGreenhouse::ChangeSetPoint(const std::string& a_change)
{
    const auto change = [&a_change](const char* a_name, double& a_value, double a_step, double a_least, double a_most)
    {
        if (a_change.starts_with(a_name))
        {
            a_value = std::clamp(a_value + (a_change.back() == '+' ? a_step : -a_step), a_least, a_most);
        }
    };
    change("Temperature", m_simulation.temperatureSetPoint, 1, 5, 35);
    change("Humidity", m_simulation.humiditySetPoint, 5, 30, 90);
    change("Light", m_simulation.lightSetPoint, 1, 0, 30);
}

void CGreenhouse::SetTheme(const std::string& a_theme)
{
    Themes().SetTheme(a_theme);
    // Behind a window that covers the screen nothing is painted, and its corners are round.
    const ClutterColor ground = Themes().Colour("Ground").AsClutterColour();
    clutter_actor_set_background_color(StaticSingleton<Gfx::Managers::CGfxManager>::ref().GetStage(), &ground);
}

void CGreenhouse::SetLanguage(const std::string& a_language)
{
    static_cast<void>(Languages().SetLanguage(a_language));
    // It isn't on the stage, and its stages belong to it rather than to their layouts.
    m_wizard->UpdateLocalisedText();
    for (const char* page : {"Settings:Language:", "SetupLanguage:Page:"})
    {
        SetBool(std::string(page) + (a_language == "de" ? "German" : "English"), "Checked", true);
    }
    for (const char* keyboard : {"NameKeys", "PasswordKeys"})
    {
        Set(keyboard, "Layout", a_language == "de" ? "German" : "Full");
    }
    Show();
}

void CGreenhouse::FinishSetup()
{
    const std::string chosen = Layouts().GetFlag("SetupKind");
    for (const SKind& kind : k_kinds)
    {
        if (kind.id == chosen)
        {
            m_simulation.temperatureSetPoint = kind.temperature;
            m_simulation.humiditySetPoint = kind.humidity;
        }
    }
    const std::string control = Layouts().GetFlag("SetupControl");
    if (!control.empty())
    {
        SetBool("Climate:Control:" + control, "Checked", true);
    }
    Show();
}

void CGreenhouse::NoteTouch(const std::string& a_target)
{
    const auto* const target = Find<CWidget>("Calibration:" + a_target);
    m_targets.push_back(target->AbsoluteTopLeft() + CPoint(target->Width() / 2, target->Height() / 2));
    m_touches.push_back(Input().RawCoordinates());
}

void CGreenhouse::EndCalibration() const
{
    constexpr int largestGoodError = 5;
    const bool isFitted = Input().SetCalibrationPoints(m_targets, m_touches);
    double error = 0;
    for (std::size_t i = 0; i < m_targets.size(); ++i)
    {
        const CPoint miss = Input().TransformCoordinates(m_touches[i].X(), m_touches[i].Y()) - m_targets[i];
        error = std::max(error, std::hypot(miss.X(), miss.Y()));
    }
    const bool isGood = isFitted && error <= largestGoodError;
    Set("Calibration:Result:Error", "Text", isFitted ? Whole(error, "px") : "?");
    SetBool("Calibration:Result:Good", "Visible", isGood);
    SetBool("Calibration:Result:Bad", "Visible", !isGood);
    SetBool("Calibration:Result:Save", "Visible", isFitted);
}

} // namespace Demo
