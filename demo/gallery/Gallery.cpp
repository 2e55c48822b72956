#include "Gallery.h"

#include "demo/GreenhouseView.h"

#include <clutter/clutter.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace Demo
{

using Core::Patterns::StaticSingleton;
using Gfx::Common::CAABB;
using Gfx::Common::CPoint;
using namespace Gfx::Widgets;

namespace
{

constexpr CAABB k_pageArea{184, 68, 604, 400};
constexpr CAABB k_navigationArea{12, 12, 164, 456};
constexpr const char* k_selected = "Selected";
constexpr const char* k_localised = "Localised:";
constexpr std::array k_icons{"Icon_Home", "Icon_Settings", "Icon_Bell",     "Icon_Play",  "Icon_Pause",   "Icon_Map",
                             "Icon_Info", "Icon_Sun",      "Icon_Contrast", "Icon_Globe", "Icon_Warning", "Icon_Moon"};

Gfx::Managers::CWidgetManager& Widgets()
{
    return StaticSingleton<Gfx::Managers::CWidgetManager>::ref();
}

Gfx::Managers::CThemeManager& Themes()
{
    return StaticSingleton<Gfx::Managers::CThemeManager>::ref();
}

/// Makes a widget as a child of another one, which holds it from then on.
template <typename WidgetT, typename... ArgumentTs>
WidgetT& Add(CWidget& a_parent, ArgumentTs&&... a_arguments)
{
    auto* widget = new WidgetT(std::forward<ArgumentTs>(a_arguments)...);
    a_parent.AddChild(CWidget::WidgetPtr(widget));
    return *widget;
}

CButton& AddButton(CWidget& a_parent, const CAABB& a_box, const std::string& a_text, bool a_allowHover = false)
{
    auto& button =
        Add<CButton>(a_parent, "button", a_box.Left(), a_box.Top(), a_box.Width(), a_box.Height(), a_allowHover);
    button.Text(k_localised + a_text);
    return button;
}

CButton& AddIcon(CWidget& a_parent, int a_x, int a_y, const std::string& a_image)
{
    auto& button = Add<CButton>(a_parent, "icon", a_x, a_y, 60, 48, false);
    button.SetImage(a_image, Gfx::eaCentre | Gfx::eaMiddle, 28, 28);
    return button;
}

CLabel& AddLabel(CWidget& a_parent, const CAABB& a_box, const std::string& a_text, int a_alignment = 0)
{
    auto& label = Add<CLabel>(a_parent, "label", a_box.Left(), a_box.Top(), a_box.Width(), a_box.Height(), false, false,
                              false, k_localised + a_text, true);
    if (a_alignment != 0)
    {
        Gfx::Text::CFontSettings font = label.Font();
        font.alignment = a_alignment;
        label.Font(font);
    }
    return label;
}

const std::string k_longText =
    "The greenhouse opens its vents when the air inside is warmer than the set point, and closes them when rain or "
    "strong wind is reported. While the shade is drawn, irrigation runs for shorter spells.\n\n"
    "Words are broken at the width of the text box. What doesn't fit is scrolled, by the bar at the right, which is "
    "only there when it is needed.\n\n"
    "Right to left: \xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D \xD7\xA2\xD7\x95\xD7\x9C\xD7\x9D. Greek: "
    "\xCE\xBA\xCE\xB1\xCE\xBB\xCE\xB7\xCE\xBC\xCE\xAD\xCF\x81\xCE\xB1. Russian: "
    "\xD0\xB4\xD0\xBE\xD0\xB1\xD1\x80\xD1\x8B\xD0\xB9 \xD0\xB4\xD0\xB5\xD0\xBD\xD1\x8C.";

} // namespace

CGallery::CGallery() : m_screen(new CImage("screen", 0, 0, 800, 480, "Screen"))
{
    Widgets().AddWidget(m_screen);
    AddNavigation();
    m_navigation->Freeze();
    AddButtons();
    AddLabels();
    AddChoices();
    AddLists();
    AddGrid();
    AddImages();
    AddProgress();
    AddGraphs();
    AddScrolling();
    AddTexts();
    AddFields();
    AddKeyboards();
    AddWindows();
    AddWizard();
    AddModels();
    m_navigation->Thaw();
    AddSwitches();
    SetTheme("Day");
    ShowPage(0);
}

void CGallery::OnClick(CWidget& a_widget, std::function<void()> a_action)
{
    using Click = Core::Functor<void, CWidget*, int, const CPoint&, bool>;
    m_clickHandlers.emplace_back(
        Click::Make([action = std::move(a_action)](CWidget*, int, const CPoint&, bool) { action(); }));
    a_widget.SetClickEventHandler(m_clickHandlers.back().get());
}

template <typename ListT>
void CGallery::OnSelection(ListT& a_list, std::function<void()> a_action)
{
    using Selection = Core::Functor<void, CWidget*>;
    m_selectionHandlers.emplace_back(Selection::Make([action = std::move(a_action)](CWidget*) { action(); }));
    a_list.SetSelectionChangedEventHandler(m_selectionHandlers.back().get());
}

void CGallery::AddNavigation()
{
    m_navigation = &Add<CListBox>(*m_screen, "navigation", k_navigationArea.Left(), k_navigationArea.Top(),
                                  k_navigationArea.Width(), k_navigationArea.Height(), false);
    OnSelection(*m_navigation,
                [this]
                {
                    const auto page = std::find_if(m_pages.begin(), m_pages.end(),
                                                   [name = m_navigation->SelectedItem()](const SPage& a_page)
                                                   { return a_page.name == name; });
                    ShowPage(static_cast<std::size_t>(page - m_pages.begin()));
                });
}

CPanel& CGallery::AddPage(const std::string& a_name)
{
    m_navigation->AddItem({a_name, k_localised + a_name}, true);
    auto& panel = Add<CPanel>(*m_screen, a_name, k_pageArea.Left(), k_pageArea.Top(), k_pageArea.Width(),
                              k_pageArea.Height(), false, true);
    panel.Hide();
    m_pages.push_back({a_name, &panel, nullptr});
    return panel;
}

void CGallery::ShowPage(std::size_t a_index)
{
    for (std::size_t i = 0; i < m_pages.size(); ++i)
    {
        m_pages[i].panel->SetShowHide(i == a_index);
    }
    m_navigation->SelectItem(m_pages[a_index].name, true);
}

void CGallery::SetTheme(const std::string& a_theme)
{
    Themes().SetTheme(a_theme);
    // Nothing is drawn behind a window that covers the screen, and the corners of windows are round.
    const Gfx::CColour colour = a_theme == "Day" ? Gfx::Colours::Gainsboro : Gfx::Colours::Black;
    const ClutterColor background{colour.Red(), colour.Green(), colour.Blue(), colour.Alpha()};
    clutter_actor_set_background_color(StaticSingleton<Gfx::Managers::CGfxManager>::ref().GetStage(), &background);
}

CWidget* CGallery::ShowExtra(std::size_t a_index)
{
    return m_pages[a_index].extra ? m_pages[a_index].extra() : nullptr;
}

void CGallery::AddButtons()
{
    CPanel& page = AddPage("Buttons");
    const auto place = [](int a_column, int a_row) { return CAABB(20 + a_column * 192, 20 + a_row * 62, 180, 50); };
    AddButton(page, place(0, 0), "Plain");
    AddButton(page, place(1, 0), "With hover", true);
    AddButton(page, place(2, 0), "Disabled").Disabled(true);
    AddButton(page, place(0, 1), "Flashing").Flashing(true);
    AddButton(page, place(1, 1), "Shortened where it is too long").SetEllipsisMode(Gfx::Text::eemEnd);
    CButton& latch = AddButton(page, place(2, 1), "Latching");
    latch.SetTextures("ControlActive_Up", "ControlActive_Up", "ControlInactive_Down", k_selected);
    OnClick(latch, [&latch] { latch.ChangeTextureSet(latch.TextureSet() == k_selected ? "Default" : k_selected); });
    CButton& markup = AddButton(page, place(0, 2), "<b>Bold</b>, <i>slanted</i>");
    markup.ParseMarkup(true);
    CButton& half = AddButton(page, place(1, 2), "Half transparent");
    half.SetTransparency(50, false);
    AddButton(page, place(2, 2), "Home").SetImage("Icon_Home", Gfx::eaLeft | Gfx::eaMiddle, 28, 28);
    int x = 20;
    for (const char* icon : {"Icon_Home", "Icon_Settings", "Icon_Bell", "Icon_Play", "Icon_Pause", "Icon_Map"})
    {
        AddIcon(page, x, 220, icon);
        x += 70;
    }
    AddIcon(page, x, 220, "Icon_Warning").Disabled(true);
    CLabel& counter = AddLabel(page, {20, 300, 400, 30}, "No touch yet");
    CButton& count = AddButton(page, {404, 290, 180, 50}, "Count touches");
    OnClick(count, [&counter, touches = 0]() mutable { counter.Text("Touches: " + std::to_string(++touches)); });
}

void CGallery::AddLabels()
{
    CPanel& page = AddPage("Labels");
    const struct
    {
        const char* text;
        int alignment;
    } alignments[] = {{"Top, left", Gfx::eaTop | Gfx::eaLeft},        {"Top, centre", Gfx::eaTop | Gfx::eaCentre},
                      {"Top, right", Gfx::eaTop | Gfx::eaRight},      {"Middle, left", Gfx::eaMiddle | Gfx::eaLeft},
                      {"Middle", Gfx::eaMiddle | Gfx::eaCentre},      {"Middle, right", Gfx::eaMiddle | Gfx::eaRight},
                      {"Bottom, left", Gfx::eaBottom | Gfx::eaLeft},  {"Bottom", Gfx::eaBottom | Gfx::eaCentre},
                      {"Bottom, right", Gfx::eaBottom | Gfx::eaRight}};
    int index = 0;
    for (const auto& row : alignments)
    {
        AddLabel(page, {20 + index % 3 * 192, 20 + index / 3 * 74, 180, 64}, row.text, row.alignment).Background(true);
        ++index;
    }
    CLabel& markup = AddLabel(page, {20, 250, 564, 30},
                              "<b>Bold</b>, <i>slanted</i>, <u>underlined</u>, <span size='smaller'>small</span>");
    markup.ParseMarkup(true);
    Add<CLabel>(page, "wrapped", 20, 288, 564, 60, true, false, false,
                "Localised:A label breaks its lines at its width, where it is told to; otherwise it is one line long.",
                true);
    auto& fitted = Add<CLabel>(page, "fitted", 20, 350, 10, 10, false, true, false,
                               "Localised:This label is as large as its text", false);
    fitted.Background(true);
    fitted.Text("Localised:This label is as large as its text ");
}

void CGallery::AddChoices()
{
    CPanel& page = AddPage("Choices");
    const char* checks[] = {"Open the vents by themselves", "Draw the shade at noon", "Sound an alarm"};
    int y = 24;
    for (const char* text : checks)
    {
        auto& box = Add<CCheckBox>(page, "check", 24, y, 540, 44, k_localised + std::string(text));
        box.Checked(y == 24);
        y += 54;
    }
    Add<CCheckBox>(page, "check", 24, y, 540, 44, "Localised:Read only").ReadOnly(true);
    m_radioGroup = Core::SharedPtr<CRadioGroup>(new CRadioGroup);
    const char* radios[] = {"Celsius", "Fahrenheit", "Kelvin"};
    int x = 24;
    for (const char* text : radios)
    {
        Core::SharedPtr<CRadioButton> radio(
            new CRadioButton("radio", x, 270, 180, 44, k_localised + std::string(text)));
        radio->Checked(x == 24);
        page.AddChild(radio);
        m_radioGroup->Add(radio, m_radioGroup);
        x += 190;
    }
}

void CGallery::AddLists()
{
    CPanel& page = AddPage("Lists");
    CLabel& selection = AddLabel(page, {20, 352, 564, 36}, "Nothing selected yet");
    selection.ParseMarkup(true);
    auto& zones = Add<CListBox>(page, "zones", 20, 16, 300, 328, false);
    zones.Freeze();
    for (int i = 1; i <= 1000; ++i)
    {
        zones.AddItem({"zone" + std::to_string(i), "Zone " + std::to_string(i)}, true);
    }
    zones.Thaw();
    zones.SelectItem("zone3", false);
    OnSelection(zones, [&zones, &selection] { selection.Text(zones.SelectedText()); });

    auto& fitting = Add<CListBox>(page, "fitting", 332, 16, 152, 328, true);
    fitting.ParseMarkup(true);
    for (const char* text : {"<b>Bold</b>", "<i>Slanted</i>", "<u>Underlined</u>", "<small>Small</small>"})
    {
        fitting.AddItem({text, text}, true);
    }
    fitting.SelectItem("<b>Bold</b>,<i>Slanted</i>", false);
    OnSelection(fitting, [&fitting, &selection] { selection.Text(fitting.SelectedText()); });

    auto& icons = Add<CListBox>(page, "icons", 496, 16, 88, 328, true);
    for (const char* icon : k_icons)
    {
        icons.AddItem({icon, "", icon}, true);
    }
    icons.SelectItem("Icon_Bell", false);
    OnSelection(icons, [&icons, &selection] { selection.Text(icons.SelectedItem()); });
}

void CGallery::AddGrid()
{
    CPanel& page = AddPage("Grid");
    CLabel& selection = AddLabel(page, {20, 352, 564, 36}, "Nothing selected yet");
    auto& grid = Add<CListGrid>(page, "grid", 20, 16, 564, 328, true);
    grid.AddItem({"text", "", k_localised + std::string("Text only")});
    grid.AddItem({"image", "Icon_Map", ""});
    for (int i = 1; i <= 40; ++i)
    {
        const std::string number = std::to_string(i);
        grid.AddItem({"zone" + number, k_icons[static_cast<std::size_t>(i) % k_icons.size()], "Zone " + number});
    }
    grid.SelectItem("image,zone2", false);
    OnSelection(grid, [&grid, &selection] { selection.Text(grid.SelectedText()); });
}

void CGallery::AddImages()
{
    CPanel& page = AddPage("Images");
    const char* images[] = {"Icon_Home", "Icon_Map",   "Icon_Bell",  "Icon_Globe", "Icon_Info",
                            "Lamp_Red",  "Lamp_Amber", "Lamp_Green", "Lamp_Off",   "Arrow_Right"};
    int index = 0;
    for (const char* image : images)
    {
        Add<CImage>(page, "image", 40 + index % 5 * 110, 30 + index / 5 * 80, 40, 40, image);
        ++index;
    }
    Add<CImage>(page, "stretched", 40, 200, 240, 80, "ControlActive_Up");
    // A gradient from memory.
    constexpr int side = 128;
    std::vector<unsigned char> pixels;
    for (int y = 0; y < side; ++y)
    {
        for (int x = 0; x < side; ++x)
        {
            pixels.insert(pixels.end(), {static_cast<unsigned char>(2 * x), static_cast<unsigned char>(2 * y), 160});
        }
    }
    auto& gradient = Add<CImage>(page, "gradient", 400, 200, side, side, "");
    gradient.SetImage(pixels.data(), side, side, 3);
    AddLabel(page, {40, 290, 340, 30}, "Stretched between its borders");
    AddLabel(page, {400, 334, 190, 30}, "Pixels from memory");
}

void CGallery::AddProgress()
{
    CPanel& page = AddPage("Progress");
    const int values[] = {0, 1, 35, 100};
    int y = 24;
    for (const int value : values)
    {
        AddLabel(page, {24, y, 120, 32}, std::to_string(value) + " %");
        Add<CProgressBar>(page, "bar", 150, y, 434, 32, 0, 100, value, true);
        y += 48;
    }
    AddLabel(page, {24, y, 124, 32}, "From right");
    Add<CProgressBar>(page, "bar", 150, y, 434, 32, 0, 100, 60, false);
    auto& moved = Add<CProgressBar>(page, "bar", 24, 340, 560, 36, 0, 100, 40, true);
    auto& scroll = Add<CScrollBar>(page, "scroll", 24, 276, 560, 52, true, 0, 100, 40, 1);
    using Scroll = Core::Functor<void, CWidget*, int>;
    m_scrollHandlers.emplace_back(Scroll::Make([&moved](CWidget*, int a_current) { moved.Current(a_current); }));
    scroll.SetScrollEventHandler(m_scrollHandlers.back().get());
}

void CGallery::AddGraphs()
{
    CPanel& page = AddPage("Graphs");
    const auto add = [&page](const CAABB& a_box, const char* a_text, Gfx::EAutoScaleMode a_modeX,
                             Gfx::EAutoScaleMode a_modeY, bool a_showYAxis) -> CGraph&
    {
        AddLabel(page, {a_box.Left(), a_box.Top(), a_box.Width(), 30}, a_text);
        return Add<CGraph>(page, "graph", a_box.Left(), a_box.Top() + 32, a_box.Width(), a_box.Height() - 32, a_modeX,
                           a_modeY, true, a_showYAxis);
    };
    CGraph& slide = add({20, 10, 564, 194}, "The last thirty seconds", Gfx::easmSlide, Gfx::easmOff, false);
    CGraph& scale = add({20, 210, 274, 180}, "From end to end", Gfx::easmScale, Gfx::easmScale, false);
    CGraph& fixed = add({310, 210, 274, 180}, "Between fixed ends", Gfx::easmOff, Gfx::easmOff, true);
    constexpr double period = 0.1;
    constexpr unsigned int pointCount = 300;
    slide.SetXRange(0, pointCount * period);
    for (CGraph* graph : {&slide, &scale})
    {
        const unsigned int count = graph == &slide ? pointCount : pointCount / 2;
        graph->AddSeries("inside", Gfx::Colours::Chocolate, 2.0F, count);
        graph->AddSeries("outside", Gfx::Colours::DodgerBlue, 2.0F, count);
        graph->AddSeries("vents", Gfx::Colours::SeaGreen, 2.0F, count);
    }
    fixed.AddSeries("wind", Gfx::Colours::MediumOrchid, 2.0F, pointCount / 2);
    m_addPoints = [&slide, &scale, &fixed, step = 0]() mutable
    {
        const double seconds = ++step * period;
        const double inside = 30 * std::sin(seconds / 4) + 5 * std::sin(seconds * 1.7);
        const double outside = 25 * std::sin(seconds / 6) + 5 * std::cos(seconds * 2.3) - 50;
        // Nothing is measured while the vents are closed.
        const double vents = std::fmod(seconds, 12) < 8 ? 75 + 10 * std::sin(seconds) : std::nan("");
        for (CGraph* graph : {&slide, &scale})
        {
            graph->AddPoint("inside", seconds, inside, false);
            graph->AddPoint("outside", seconds, outside, false);
            graph->AddPoint("vents", seconds, vents, false);
        }
        fixed.AddPoint("wind", 85 * std::sin(seconds * 1.3), 85 * std::sin(seconds * 1.7), false);
    };
    for (unsigned int i = 0; i < pointCount; ++i)
    {
        m_addPoints();
    }
    const auto tick = [this, &fixed]
    {
        m_addPoints();
        fixed.Invalidate(false);
        return true;
    };
    // The graphs move while they are seen.
    using Visibility = Core::Functor<bool, CWidget*, bool>;
    m_graphsShown.reset(Visibility::Make(
        [tick, timer = 0U](CWidget*, bool a_visible) mutable
        {
            auto& timers = Gfx::Managers::CTimerManager::ref();
            if (a_visible)
            {
                timer = timers.AddTimeoutMs(static_cast<int>(period * 1000), Core::Functor<bool>::Make(tick));
            }
            else
            {
                timers.RemoveTimeout(timer);
            }
            return true;
        }));
    page.SetVisibilityChangedEventHandler(m_graphsShown.get());
}

void CGallery::AddScrolling()
{
    CPanel& page = AddPage("Scrolling");
    auto& panel = Add<CPanel>(page, "list", 20, 20, 380, 360, true, false);
    for (int i = 0; i < 14; ++i)
    {
        AddButton(panel, {12, 12 + i * 54, 290, 48}, "Zone " + std::to_string(i + 1));
    }
    Add<CScrollBar>(page, "vertical", 420, 20, 52, 360, false, 0, 20, 7, 1);
    auto& small = Add<CScrollBar>(page, "vertical", 490, 20, 52, 360, false, 0, 20, 7, 1);
    small.SetTransparency(50, false);
}

void CGallery::AddTexts()
{
    CPanel& page = AddPage("Texts");
    auto& text = Add<CTextBox>(page, "text", 20, 20, 564, 240, true);
    text.Text(k_longText);
    auto& note = Add<CTextBox>(page, "note", 20, 276, 564, 100, false);
    note.ParseMarkup(true);
    note.Text("This one does <b>not</b> scroll, and parses <i>markup</i>.");
}

CWidget* CGallery::OpenKeyboard(const std::string& a_layout, const std::string& a_mode, const std::string& a_text,
                                std::function<void(const std::string&)> a_take)
{
    COnScreenKeyboard::ParseConfiguration();
    const auto& layout = COnScreenKeyboard::Keyboards.at(a_layout);
    auto* keyboard = new COnScreenKeyboard("keyboard", (m_screen->Width() - layout.width) / 2,
                                           (m_screen->Height() - layout.height) / 2, a_layout, a_mode, "");
    Widgets().AddWidget(WidgetPtr(keyboard));
    using Closed = Core::Functor<void, CWidget*, bool, const std::string&>;
    m_keyboardClosed.reset(Closed::Make(
        [take = std::move(a_take)](CWidget* a_keyboard, bool a_done, const std::string& a_newText)
        {
            if (a_done)
            {
                take(a_newText);
            }
            Widgets().DestroyWidget(a_keyboard);
        }));
    keyboard->SetKeyboardClosedEventHandler(m_keyboardClosed.get());
    keyboard->Text(a_text);
    keyboard->Show();
    return keyboard;
}

void CGallery::AddFields()
{
    CPanel& page = AddPage("Fields");
    const auto place = [](int a_column, int a_row)
    { return CAABB(a_column == 0 ? 20 : 180, 20 + a_row * 62, a_column == 0 ? 150 : 404, 48); };
    const auto label = [&](int a_row, const char* a_text)
    { AddLabel(page, place(0, a_row), a_text, Gfx::eaLeft | Gfx::eaMiddle); };
    const auto field = [&](int a_row, bool a_password, const std::string& a_text) -> CEditBox&
    {
        const CAABB box = place(1, a_row);
        auto& edit = Add<CEditBox>(page, "field", box.Left(), box.Top(), box.Width(), box.Height(), a_password, a_text);
        OnClick(edit,
                [this, &edit] {
                    OpenKeyboard("Full", "Default", edit.Text(),
                                 [&edit](const std::string& a_newText) { edit.Text(a_newText); });
                });
        return edit;
    };
    const auto fields = [&](int a_row, const char* a_mode, const std::string& a_text) -> CNumericEditBox&
    {
        COnScreenKeyboard::ParseConfiguration();
        const CAABB box = place(1, a_row);
        auto& row = Add<CNumericEditBox>(page, "fields", box.Left(), box.Top(), box.Width(), box.Height(),
                                         COnScreenKeyboard::Keyboards.at("Digits").modes.at(a_mode));
        row.Text(a_text);
        const auto open = [this, &row, a_mode] {
            return OpenKeyboard("Digits", a_mode, row.Text(),
                                [&row](const std::string& a_newText) { row.Text(a_newText); });
        };
        using Mouse = Core::Functor<void, CWidget*, Gfx::Events::EMouseEvent, int, const CPoint&, bool>;
        m_mouseHandlers.emplace_back(Mouse::Make(
            [open](CWidget*, Gfx::Events::EMouseEvent a_event, int, const CPoint&, bool)
            {
                if (a_event == Gfx::Events::FirstClick)
                {
                    open();
                }
            }));
        row.SetMouseEditBoxListEventHandler(m_mouseHandlers.back().get());
        m_pages.back().extra = open;
        return row;
    };
    label(0, "Name");
    field(0, false, "Glasshouse, \xE2\x82\xAC 20, \xC3\xA9t\xC3\xA9");
    label(1, "In use");
    field(1, false, "Typed at its end").LockActive(true);
    label(2, "Password");
    field(2, true, "tomatoes").PasswordCharacter(0x2022);
    label(3, "Too long");
    field(3, false, k_longText.substr(0, k_longText.find('.')));
    label(4, "Address");
    fields(4, "Address", "192.168.10.1 ").HighlightFirst();
    label(5, "Time");
    fields(5, "Time", "12:30:00 ");
}

void CGallery::AddKeyboards()
{
    CPanel& page = AddPage("Keyboards");
    auto& text = Add<CEditBox>(page, "text", 20, 276, 564, 48, false, "");
    int index = 0;
    for (const char* layout : {"Full", "German", "French", "Greek", "Russian", "Arabic", "Numeric", "Digits", "Phone"})
    {
        CButton& button = AddButton(page, {20 + index % 3 * 192, 20 + index / 3 * 62, 180, 50}, layout);
        const auto open = [this, layout, &text]
        {
            return OpenKeyboard(layout, "Default", text.Text(),
                                [&text](const std::string& a_newText) { text.Text(a_newText); });
        };
        OnClick(button, open);
        if (index == 0)
        {
            m_pages.back().extra = open;
        }
        ++index;
    }
    AddLabel(page, {20, 226, 564, 44}, "What a keyboard hands back:", Gfx::eaLeft | Gfx::eaMiddle);
}

void CGallery::AddWindows()
{
    CPanel& page = AddPage("Windows");
    m_answer.reset(Core::Functor<void, int>::Make([](int) {}));
    const auto showWindow = []
    {
        auto* window = new CWindow("window", 220, 110, 420, 260, false, "Localised:A window",
                                   CWindow::ewfTitleBar | CWindow::ewfDraggable);
        Widgets().AddWidget(CWidget::WidgetPtr(window));
        AddLabel(*window, {16, 12, 380, 60}, "Drag it by its title.", Gfx::eaLeft | Gfx::eaMiddle);
        return window;
    };
    CButton& open = AddButton(page, {24, 24, 270, 50}, "Open a window");
    OnClick(open,
            [this, showWindow]
            {
                CWindow* window = showWindow();
                CButton& close = AddButton(*window, {260, 140, 140, 50}, "Close");
                OnClick(close, [window] { window->Destroy(); });
            });
    const std::array<std::pair<const char*, std::array<const char*, 3>>, 3> boxes{{
        {"One button", {"Localised:Yes", "", ""}},
        {"Two buttons", {"Localised:Yes", "Localised:No", ""}},
        {"Three, one an image", {"Localised:Yes", "Localised:No", "Image:Icon_Cancel"}},
    }};
    int y = 90;
    for (const auto& box : boxes)
    {
        CButton& button = AddButton(page, {24, y, 270, 50}, box.first);
        const auto show = [this, captions = box.second]() -> CWidget*
        {
            return Widgets().ShowMessageBox(520, 300, "",
                                            "Localised:Water is low in tank <b>two</b>. Fill it up before the night?",
                                            m_answer.get(), captions[0], captions[1], captions[2]);
        };
        OnClick(button, show);
        m_pages.back().extra = show;
        y += 66;
    }
}

void CGallery::AddWizard()
{
    CPanel& page = AddPage("Wizard");
    using Navigate = Core::Functor<const std::string, bool, const std::string&>;
    m_navigate.reset(Navigate::Make(
        [](bool a_forwards, const std::string& a_stage) -> const std::string
        {
            const int next = a_stage.back() - '0' + (a_forwards ? 1 : -1);
            return next < 1 ? a_stage : next > 3 ? "" : "Stage" + std::to_string(next);
        }));
    AddLabel(page, {24, 24, 560, 30}, "A wizard leads through pages, with a button back and one on.");
    CButton& start = AddButton(page, {24, 70, 270, 50}, "Start the wizard");
    const auto show = [this]() -> CWidget*
    {
        auto* wizard = new CWizard("wizard");
        for (int i = 1; i <= 3; ++i)
        {
            auto* stage = new CWizardStage("Stage" + std::to_string(i), false);
            AddLabel(*stage, {20, 20, 700, 40}, "Step " + std::to_string(i) + " of 3");
            Add<CCheckBox>(*stage, "check", 20, 80, 500, 44, "Localised:Sound an alarm");
            wizard->AddChild(CWidget::WidgetPtr(stage));
        }
        wizard->SetNavigateEventHandler(m_navigate.get());
        Widgets().AddWidget(CWidget::WidgetPtr(wizard));
        wizard->SelectStage("Stage1");
        return wizard;
    };
    OnClick(start, show);
    m_pages.back().extra = show;
}

void CGallery::AddModels()
{
    CPanel& page = AddPage("Models");
    StaticSingleton<Gfx::Managers::C3DManager>::ref().Initialise("data/");
    auto& view = Add<CGreenhouseView>(page, "greenhouse", CAABB(12, 12, 424, 376));
    const auto addText = [&page](int a_y, const std::string& a_text) -> CLabel&
    { return Add<CLabel>(page, "text", 444, a_y, 148, 56, true, false, false, k_localised + a_text, true); };
    CLabel& selected = addText(20, "Touch a vent");
    view.OnSelected([&selected](const std::string& a_name)
                    { selected.Text(k_localised + (a_name.empty() ? "Touch a vent" : a_name)); });
    auto add = [&page, y = 84](const std::string& a_text) mutable -> CButton&
    {
        CButton& button = AddButton(page, {444, y, 148, 50}, a_text);
        y += 58;
        return button;
    };
    OnClick(add("Open all"), [&view] { view.OpenVents(1); });
    OnClick(add("Close all"), [&view] { view.OpenVents(0); });
    CButton& alarm = add("Alarm");
    alarm.SetTextures("ControlActive_Up", "ControlActive_Up", "ControlActive_Down", k_selected);
    OnClick(alarm,
            [&view, &alarm, isOn = false]() mutable
            {
                isOn = !isOn;
                view.SetAlarm(isOn);
                alarm.ChangeTextureSet(isOn ? k_selected : "Default");
            });
    CButton& season = add("Summer");
    OnClick(season,
            [&view, &season, index = 1]() mutable
            {
                constexpr std::array<const char*, 4> seasons{"Spring", "Summer", "Autumn", "Winter"};
                index = (index + 1) % 4;
                view.SetSeason(seasons.at(static_cast<std::size_t>(index)));
                season.Text(k_localised + std::string(seasons.at(static_cast<std::size_t>(index))));
            });
    addText(326, "Drag to turn it");
}

void CGallery::AddSwitches()
{
    AddLabel(*m_screen, {184, 12, 300, 48}, "Controls", Gfx::eaLeft | Gfx::eaMiddle);
    const std::array<std::pair<const char*, const char*>, 3> themes{
        {{"Icon_Sun", "Day"}, {"Icon_Moon", "Night"}, {"Icon_Contrast", "Contrast"}}};
    int x = 524;
    for (const auto& [icon, theme] : themes)
    {
        OnClick(AddIcon(*m_screen, x, 12, icon), [theme = theme] { SetTheme(theme); });
        x += 68;
    }
    OnClick(AddIcon(*m_screen, x, 12, "Icon_Globe"), [this] { NextLanguage(); });
}

void CGallery::NextLanguage()
{
    Core::Localisation::CManager& localisation = *Core::Localisation::CManager::Instance();
    static_cast<void>(localisation.SetLanguage(localisation.Language() == "de" ? "en" : "de"));
}

} // namespace Demo
