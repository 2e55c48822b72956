#include "Console.h"

#include "Report.h"

#include "support/Png.h"

#include <clutter/clutter.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <map>
#include <set>
#include <string_view>

namespace Soak
{

using Core::IO::XMLNode;
using Core::Patterns::StaticSingleton;
using Gfx::Common::CPoint;
using Gfx::Managers::CInputManager;
using GfxTest::CPicture;
using GfxTest::WidgetPtr;

namespace
{

constexpr int k_idleMs = 100;
constexpr int k_minuteMs = 1000;
constexpr int k_cleanUpMs = 5000;
/// Beside everything that looks different under the pointer.
constexpr CPoint k_rest(300, 30);
/// How often what is set back may set something else.
constexpr int k_mostPasses = 5;

Gfx::Managers::CGfxManager& Gfx_()
{
    return StaticSingleton<Gfx::Managers::CGfxManager>::ref();
}

Gfx::Managers::CLayoutManager& Layouts()
{
    return StaticSingleton<Gfx::Managers::CLayoutManager>::ref();
}

void Write(const CPicture& a_picture, const std::string& a_name)
{
    std::vector<std::uint8_t> pixels;
    for (int y = 0; y < a_picture.Height(); ++y)
    {
        for (int x = 0; x < a_picture.Width(); ++x)
        {
            const Gfx::CColour colour = a_picture.At(x, y);
            pixels.insert(pixels.end(), {colour.Red(), colour.Green(), colour.Blue()});
        }
    }
    std::ofstream(PictureFolder() + a_name, std::ios::binary)
        << GfxTest::EncodePng(a_picture.Width(), a_picture.Height(), 2, 8, pixels);
}

/// Fails, with both pictures, if they differ.
void Compare(const CPicture& a_picture, const CPicture& a_expected, const std::string& a_what)
{
    if (a_picture.CountDifferences(a_expected) == 0)
    {
        return;
    }
    int left = a_picture.Width();
    int top = a_picture.Height();
    int right = 0;
    int bottom = 0;
    for (int y = 0; y < a_picture.Height(); ++y)
    {
        for (int x = 0; x < a_picture.Width(); ++x)
        {
            if (!(a_picture.At(x, y) == a_expected.At(x, y)))
            {
                left = std::min(left, x);
                top = std::min(top, y);
                right = std::max(right, x + 1);
                bottom = std::max(bottom, y + 1);
            }
        }
    }
    Write(a_picture, "soak-is.png");
    Write(a_expected, "soak-should-be.png");
    Fail(a_what + ": " + std::to_string(a_picture.CountDifferences(a_expected)) + " pixels differ, within " +
         std::to_string(left) + ',' + std::to_string(top) + ' ' + std::to_string(right - left) + " x " +
         std::to_string(bottom - top) + "; see soak-is.png and soak-should-be.png in " + PictureFolder());
}

/// The actors of all screens that there have been and are, with their names.
std::map<const void*, std::string> s_alive;

std::size_t Look(const CPicture& a_picture)
{
    std::string pixels;
    for (int y = 0; y < a_picture.Height(); ++y)
    {
        for (int x = 0; x < a_picture.Width(); ++x)
        {
            const Gfx::CColour colour = a_picture.At(x, y);
            for (const std::uint8_t value : {colour.Red(), colour.Green(), colour.Blue()})
            {
                pixels += static_cast<char>(value);
            }
        }
    }
    return std::hash<std::string_view>()(pixels);
}

} // namespace

std::string SState::Name() const
{
    return std::string(page) + ", " + theme + ", " + language;
}

CConsole::CConsole()
{
    setenv("GFX_SYSTEM_CONFIG", (m_data.Path() + "system.conf").c_str(), 1);
    CStage::SetUpStage(m_data.Path());
    if (Gfx_().GetStage() == nullptr)
    {
        Fail("no display");
    }
    StaticSingleton<Gfx::Managers::CTextureManager>::ref().LoadTextures();
    StaticSingleton<Gfx::Managers::C3DManager>::ref().Initialise(m_data.Path());
    CStage::WaitForClippedRedraws();
    m_hands = std::make_unique<CHands>();
    StartProgram();
    for (const std::string& file : m_data.Layouts())
    {
        Core::IO::XMLDocument document;
        const XMLNode* const layouts = document.Parse(file) ? document.Section("Layouts") : nullptr;
        if (layouts == nullptr)
        {
            Fail("no layouts in " + file);
        }
        for (const XMLNode& layout : layouts->Children())
        {
            Note(layout, "");
        }
    }
    for (const char* page : k_pages)
    {
        for (const char* theme : k_themes)
        {
            for (const char* language : k_languages)
            {
                // All of them now, so that the heap doesn't grow by them later.
                m_looks.emplace(SState{page, theme, language}.Name(), 0);
            }
        }
    }
}

void CConsole::StartProgram()
{
    m_program = std::make_unique<Demo::CGreenhouse>();
    for (const std::string& layout : Layouts().LayoutIds())
    {
        // Pages refer to those that they are reached from. The stages of the set-up belong to the wizard.
        if (!layout.starts_with("Setup"))
        {
            Layouts().ApplyLayout(layout);
        }
    }
    m_roots.clear();
    for (const std::string& layout : Layouts().LayoutIds())
    {
        for (const WidgetPtr& root : Layouts().RetrieveLayout(layout))
        {
            m_roots.emplace(root->Name(), root);
            if (ClutterActor* const actor = root->GetActor();
                actor != nullptr && s_alive.emplace(actor, root->Name()).second)
            {
                g_object_weak_ref(
                    G_OBJECT(actor), [](gpointer, GObject* a_actor) { s_alive.erase(a_actor); }, nullptr);
            }
        }
    }
}

WidgetPtr CConsole::Find(const std::string& a_path) const
{
    const std::size_t colon = a_path.find(':');
    const auto root = m_roots.find(a_path.substr(0, colon));
    if (root == m_roots.end() || colon == std::string::npos)
    {
        return root != m_roots.end() ? root->second : WidgetPtr();
    }
    return CStage::Widgets().FindWidget(a_path.substr(colon + 1), root->second.Get());
}

void CConsole::Note(const XMLNode& a_element, const std::string& a_path)
{
    for (const XMLNode& child : a_element.Children())
    {
        const std::string id = child.Attribute("id", "");
        if (child.Name() == "RadioGroup")
        {
            Note(child, a_path);
        }
        else if (!id.empty())
        {
            const std::string path = a_path.empty() ? id : a_path + ':' + id;
            NoteWidget(path, child.Attribute("text", ""));
            Note(child, path);
        }
    }
}

void CConsole::NoteWidget(const std::string& a_path, const std::string& a_text)
{
    const WidgetPtr widget = Find(a_path);
    if (!widget)
    {
        return;
    }
    SWidget& first = m_first[a_path];
    for (const auto& property : widget->Properties())
    {
        const std::string name(property.name);
        if (property.isReadable && property.isWritable)
        {
            first.properties[name] = widget->GetProperty(name, "");
        }
        // Reading a localised text gives its key alone.
        if (name == "Text" && a_text == "Localised:" + first.properties[name])
        {
            first.localisedText = a_text;
        }
    }
    if (auto* const box = dynamic_cast<Gfx::Widgets::CListBox*>(widget.Get()))
    {
        first.items = box->Items();
        first.firstItem = box->Items().empty() ? "" : box->Items().front().id;
    }
    if (auto* const grid = dynamic_cast<Gfx::Widgets::CListGrid*>(widget.Get()))
    {
        first.firstItem = grid->Items().empty() ? "" : grid->Items().front().id;
    }
}

void CConsole::LeaveWidget(const std::string& a_path) const
{
    const WidgetPtr widget = Find(a_path);
    const auto leave = [](const WidgetPtr& a_widget)
    {
        if (a_widget)
        {
            for (const auto event : {Gfx::Events::FirstUp, Gfx::Events::Leave})
            {
                a_widget->MouseEvent(event, 0, {-1, -1}, false);
            }
        }
        if (a_widget && a_widget->Selected())
        {
            a_widget->Deselect();
        }
    };
    const auto leaveRows = [&](auto* a_list)
    {
        for (std::size_t i = 0; a_list != nullptr && i < a_list->Items().size(); ++i)
        {
            leave(Find(a_path + ':' + a_list->Items()[i].id));
        }
    };
    leave(widget);
    leaveRows(dynamic_cast<Gfx::Widgets::CListBox*>(widget.Get()));
    leaveRows(dynamic_cast<Gfx::Widgets::CListGrid*>(widget.Get()));
    if (dynamic_cast<Gfx::Widgets::CNumericEditBox*>(widget.Get()) != nullptr)
    {
        // Its fields lie side by side.
        const CPoint corner = widget->AbsoluteTopLeft();
        for (int x = 0; x < widget->Width(); x += 10)
        {
            leave(widget->FindIntersectingChild({corner.X() + x, corner.Y() + widget->Height() / 2, 1, 1}));
        }
    }
}

bool CConsole::SetBack(const std::string& a_path, const SWidget& a_first)
{
    const WidgetPtr widget = Find(a_path);
    if (!widget)
    {
        Fail(a_path + " has gone");
    }
    bool isAsFirst = true;
    if (auto* const box = dynamic_cast<Gfx::Widgets::CListBox*>(widget.Get()))
    {
        const auto& items = box->Items();
        if (!std::equal(items.begin(), items.end(), a_first.items.begin(), a_first.items.end(),
                        [](const auto& a_item, const auto& a_other)
                        { return a_item.id == a_other.id && a_item.text == a_other.text; }))
        {
            isAsFirst = false;
            box->ClearItems();
            for (const auto& item : a_first.items)
            {
                box->AddItem(item, true);
            }
        }
        box->ScrollTo(a_first.firstItem);
    }
    if (auto* const grid = dynamic_cast<Gfx::Widgets::CListGrid*>(widget.Get()))
    {
        grid->ScrollTo(a_first.firstItem);
    }
    // What a touch of the item does to others is done, too, which writing the property doesn't do.
    const auto selected = a_first.properties.find("SelectedItem");
    const auto select = [&](auto* a_list)
    {
        if (a_list != nullptr && a_list->SelectedItem() != selected->second)
        {
            isAsFirst = false;
            a_list->ToggleItem(selected->second, true);
        }
    };
    select(dynamic_cast<Gfx::Widgets::CListBox*>(widget.Get()));
    select(dynamic_cast<Gfx::Widgets::CListGrid*>(widget.Get()));
    for (const auto& [name, value] : a_first.properties)
    {
        if (widget->GetProperty(name, "") != value)
        {
            isAsFirst = false;
            widget->SetProperty(name, name == "Text" && !a_first.localisedText.empty() ? a_first.localisedText : value);
        }
    }
    return isAsFirst;
}

void CConsole::Pass(int a_milliseconds)
{
    for (; a_milliseconds > 0; a_milliseconds -= k_idleMs)
    {
        CStage::Advance(k_idleMs);
        Gfx_().Idle();
        CStage::Widgets().Idle();
        StaticSingleton<CInputManager>::ref().Idle();
        if ((m_toMinute += k_idleMs) >= k_minuteMs)
        {
            m_toMinute = 0;
            m_program->Step();
        }
        if ((m_toCleanUp += k_idleMs) >= k_cleanUpMs)
        {
            m_toCleanUp = 0;
            CStage::Widgets().GarbageCollect();
        }
        Pump();
    }
}

void CConsole::Notify(const char* a_notification, const std::string& a_parameter)
{
    Layouts().PostNotification(a_notification, a_parameter, {});
    Pump();
}

void CConsole::Reload()
{
    std::vector<std::string> errors;
    const bool isRead = Gfx_().Reload(errors);
    Pump();
    if (m_data.IsDamaged())
    {
        return;
    }
    if (!isRead)
    {
        Fail("can't read the data again: " + errors.front());
    }
    bool isSame = true;
    for (const std::string& layout : Layouts().LayoutIds())
    {
        for (const WidgetPtr& root : Layouts().RetrieveLayout(layout))
        {
            isSame = isSame && Find(root->Name()) == root;
        }
    }
    if (isSame)
    {
        return;
    }
    m_program->Leave();
    m_program.reset();
    StartProgram();
    Pump();
}

void CConsole::Apply(const std::string& a_layout)
{
    for (const WidgetPtr& widget : Layouts().RetrieveLayout(a_layout))
    {
        CStage::Widgets().DestroyWidget(widget.Get());
    }
    Layouts().ApplyLayout(a_layout);
    ++m_applied;
}

WidgetPtr CConsole::AnyWidget(const Chance& a_chance)
{
    const auto roots = CStage::Widgets().TopLevelWidgets();
    WidgetPtr widget = CStage::Widgets().GetModalWidget();
    if (!widget && !roots.empty())
    {
        widget = roots[static_cast<std::size_t>(a_chance(static_cast<int>(roots.size())))];
    }
    while (widget && a_chance(8) != 0)
    {
        // One of its children, by a point within it.
        const int x = widget->AbsoluteTopLeft().X() + a_chance(std::max(widget->Width(), 1));
        const int y = widget->AbsoluteTopLeft().Y() + a_chance(std::max(widget->Height(), 1));
        const WidgetPtr child = widget->FindIntersectingChild({x, y, 1, 1});
        if (!child)
        {
            break;
        }
        widget = child;
    }
    return widget;
}

void CConsole::ReadLayouts(bool a_remake)
{
    std::vector<std::string> errors;
    if (!Layouts().Reload(errors, a_remake))
    {
        Fail("can't read layouts again: " + errors.front());
    }
    CStage::Widgets().GarbageCollect();
}

void CConsole::ForgetFormerWidgets() const
{
    // They stay until layouts are read again, and those that another one of them holds for once more.
    for (int i = 0; i < 2; ++i)
    {
        ReadLayouts(false);
    }
    std::set<const void*> present;
    for (const auto& [name, root] : m_roots)
    {
        present.insert(root->GetActor());
    }
    for (const auto& [actor, name] : s_alive)
    {
        if (present.count(actor) == 0)
        {
            Fail("a former " + name + " is still there");
        }
    }
}

void CConsole::CloseBoxes()
{
    for (int i = 0; i < 20; ++i)
    {
        const WidgetPtr box = CStage::Widgets().FindWidget("WidgetMgrMessage", nullptr);
        if (!box)
        {
            return;
        }
        // Over all others, so that its last button, or its only one, can be touched.
        CStage::Widgets().BringToFront(box.Get());
        const CPoint corner = box->AbsoluteTopLeft() + CPoint(box->Width() - 40, box->Height() - 40);
        m_hands->Tap(corner.X(), corner.Y());
    }
    Fail("a message box can't be closed");
}

void CConsole::TapOn(const std::string& a_path)
{
    const WidgetPtr widget = Find(a_path);
    if (!widget || !CStage::Widgets().IsVisible(widget.Get()))
    {
        Fail(a_path + " can't be seen");
    }
    const CPoint middle = widget->AbsoluteTopLeft() + CPoint(widget->Width() / 2, widget->Height() / 2);
    m_hands->Tap(middle.X(), middle.Y());
}

void CConsole::BringTo(const SState& a_state)
{
    NoteStep("bring to " + a_state.Name());
    StaticSingleton<CInputManager>::ref().UseCalibration(CInputManager::k_identity);
    m_hands->LetGo();
    CloseBoxes();
    m_program->Leave();
    m_program.reset();
    StartProgram();
    ForgetFormerWidgets();
    Notify("Theme", k_home.theme);
    Notify("Language", k_home.language);
    for (int pass = 0;; ++pass)
    {
        bool isAsFirst = true;
        for (const auto& [path, first] : m_first)
        {
            isAsFirst = SetBack(path, first) && isAsFirst;
        }
        if (isAsFirst)
        {
            break;
        }
        if (pass == k_mostPasses)
        {
            Fail("properties can't be set back");
        }
    }
    // Whoever destroys a widget ends what pointer and keyboard are at without a word to anybody, and a button or a
    // field keeps its look.
    for (const auto& [path, first] : m_first)
    {
        LeaveWidget(path);
    }
    Notify("Theme", a_state.theme);
    Notify("Language", a_state.language);
    for (const auto& [name, root] : m_roots)
    {
        // A change of style lays new keys over those that there are, which go with the next page.
        if (auto* const keyboard = dynamic_cast<Gfx::Widgets::COnScreenKeyboard*>(root.Get()))
        {
            keyboard->Cleanup();
            keyboard->Buildup();
        }
    }
    // The bell would flash otherwise.
    Notify("Acknowledge", "Tank");
    const std::string page = a_state.page;
    for (const char* root : {"Navigation", "Status"})
    {
        CStage::Widgets().BringToFront(Find(root).Get());
    }
    TapOn("Navigation:Pages:Settings");
    if (page == "Network")
    {
        TapOn("Settings:Console:OpenNetwork");
    }
    else if (page == "Calibration")
    {
        TapOn("Settings:Console:OpenTouch");
    }
    else
    {
        TapOn("Navigation:Pages:" + page);
    }
    m_hands->MoveTo(k_rest.X(), k_rest.Y());
    CStage::Widgets().GarbageCollect();
    CStage::Settle();
}

void CConsole::Rebuild()
{
    NoteStep("rebuild");
    m_hands->LetGo();
    CloseBoxes();
    m_program->Leave();
    m_program.reset();
    m_roots.clear();
    for (const WidgetPtr& widget : CStage::Widgets().TopLevelWidgets())
    {
        CStage::Widgets().DestroyWidget(widget.Get());
    }
    ReadLayouts(true);
    ForgetFormerWidgets();
    CStage::Settle();
    StartProgram();
}

void CConsole::CheckRepaint()
{
    CStage::Settle();
    const CPicture shown = m_hands->Seen();
    Compare(shown, CStage::FreshPicture(), "what was painted in parts, beside all of it painted anew");
}

void CConsole::CheckState(const SState& a_state, bool a_anew)
{
    BringTo(a_state);
    CheckRepaint();
    std::size_t& look = m_looks.at(a_state.Name());
    const CPicture used = CStage::FreshPicture();
    const std::size_t usedLook = Look(used);
    if (!a_anew && usedLook == look)
    {
        return;
    }
    Rebuild();
    BringTo(a_state);
    const CPicture fresh = CStage::FreshPicture();
    Compare(used, fresh, "the state " + a_state.Name() + ", beside the same made of nothing");
    if (look != 0 && usedLook != look)
    {
        Write(fresh, "soak-is.png");
        Fail("the state " + a_state.Name() + " isn't what it was when it was first made of nothing");
    }
    look = usedLook;
}

} // namespace Soak
