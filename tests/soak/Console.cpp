#include "Console.h"

#include "Pictures.h"
#include "Report.h"
#include "Stage.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace Soak
{

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

Gfx::Managers::CGfxManager& Gfx_()
{
    return StaticSingleton<Gfx::Managers::CGfxManager>::ref();
}

Gfx::Managers::CLayoutManager& Layouts()
{
    return StaticSingleton<Gfx::Managers::CLayoutManager>::ref();
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
    m_first.Note(m_data.Layouts());
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
    m_roots.Collect();
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
    if (m_roots.ArePresent())
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
    const WidgetPtr widget = m_roots.Find(a_path);
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
    m_roots.ForgetFormer();
    Notify("Theme", k_home.theme);
    Notify("Language", k_home.language);
    m_first.SetBack();
    Notify("Theme", a_state.theme);
    Notify("Language", a_state.language);
    for (const auto& [name, root] : m_roots.All())
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
        CStage::Widgets().BringToFront(m_roots.Find(root).Get());
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
    m_roots.Clear();
    for (const WidgetPtr& widget : CStage::Widgets().TopLevelWidgets())
    {
        CStage::Widgets().DestroyWidget(widget.Get());
    }
    ReadLayouts(true);
    m_roots.ForgetFormer();
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
