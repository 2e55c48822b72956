#include "Widgets/Controls/Window/Window.h"

#include "Core/StaticSingleton.h"
#include "Gfx/Common/Alignment.h"
#include "Managers/Config/StyleKeys.h"
#include "Managers/Widgets/WidgetManager.h"
#include "Platform/Clutter/Actor.h"

#include <array>
#include <cstdint>
#include <utility>

namespace Gfx::Widgets
{

namespace
{

struct SStyle
{
    int titleBarHeight = 20;
    std::string defaultTitle;
    std::string active = "ActiveTitleBar";
    std::string inactive = "InactiveTitleBar";
};

constexpr std::array s_styleKeys{
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/Window/TitleBarHeight", &SStyle::titleBarHeight},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/Window/DefaultTitle", &SStyle::defaultTitle},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/Window/Textures/ActiveTitleBar", &SStyle::active},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/Window/Textures/InactiveTitleBar", &SStyle::inactive},
};

constexpr std::array s_properties{
    SProperty<CWindow>{"Title", [](const CWindow& a_window) { return a_window.Title(); },
                       [](CWindow& a_window, const std::string& a_value) { a_window.Title(a_value); }},
};

} // namespace

std::span<const SProperty<CWindow>> CWindow::PropertyTable()
{
    return s_properties;
}

CWindow::CWindow(const std::string& a_name, int a_x, int a_y, int a_width, int a_height, bool a_allowScrolling,
                 const std::string& a_title, int a_flags)
    : CWithProperties(a_name, "Window", a_x, a_y, a_width, a_height, false)
    , m_title("Window")
    , m_flags(a_flags)
    , m_clientMouseHandler(this, &CWindow::ClientMouseEventHandler)
{
    InitialiseClutterGroup();
    const auto& style = Managers::ReadStyle(s_styleKeys);
    m_titleBarHeight = style.titleBarHeight;
    m_activeTitleBar.Element(style.active);
    m_inactiveTitleBar.Element(style.inactive);
    LoadTextures();
    if (HasTitleBar())
    {
        m_title.Create(GetActor());
        if (Core::Patterns::StaticSingleton<Managers::CConfigManager>::ref().ClipText())
        {
            m_title.Actor().Clip({0, 0, Width(), m_titleBarHeight});
        }
        Title(a_title.empty() ? style.defaultTitle : a_title);
    }
    const int clientTop = HasTitleBar() ? m_titleBarHeight : 0;
    m_clientPanel = Core::SharedPtr<CPanel>(
        new CPanel("WindowPanel", 0, clientTop, Width(), Height() - clientTop, a_allowScrolling, true));
    m_clientPanel->SetMouseEventHandler(&m_clientMouseHandler);
    CWidget::AddChild(m_clientPanel);
    CWidget::Modal((m_flags & ewfModal) != 0);
}

CWindow::~CWindow()
{
    // An event in progress may hold the panel for longer.
    m_clientPanel->SetMouseEventHandler(nullptr);
}

void CWindow::Destroy()
{
    Core::Patterns::StaticSingleton<Managers::CWidgetManager>::ref().DestroyWidget(this);
}

int CWindow::ClientHeight()
{
    return m_clientPanel->Height();
}

int CWindow::ClientWidth()
{
    return m_clientPanel->Width();
}

void CWindow::ClientMouseEventHandler(CWidget* a_widget, Events::EMouseEvent a_event, int a_buttons,
                                      const Common::CPoint& a_point, bool a_remote)
{
    if (a_widget == m_clientPanel.Get())
    {
        // The event is the panel's: nobody else holds the window meanwhile.
        const WidgetPtr self = Self();
        MouseEvent(a_event, a_buttons, FromAbsoluteToChildCoordinates(m_clientPanel->AbsoluteTopLeft() + a_point),
                   a_remote);
    }
}

void CWindow::Font(const Text::CFontSettings& a_font)
{
    m_title.Font(a_font);
    UpdateLabelPosition();
}

void CWindow::Title(const std::string& a_title)
{
    const CLife life(Children());
    m_title.SetRaw(a_title);
    UpdateLocalisedText();
    if (!life.IsOver())
    {
        UpdateLabelPosition();
    }
}

void CWindow::LoadTextures()
{
    if (HasTitleBar())
    {
        const Common::CAABB titleBar(0, 0, Width(), m_titleBarHeight);
        m_activeTitleBar.Retrieve(titleBar);
        m_inactiveTitleBar.Retrieve(titleBar);
    }
}

void CWindow::UpdateLabelPosition()
{
    if (HasTitleBar())
    {
        m_title.Place({Width(), m_titleBarHeight}, m_title.Actor().PreferredSize(), m_activeTitleBar.Margins(),
                      eaLeft | eaMiddle, ECentring::Truncating);
    }
}

void CWindow::Select()
{
    const CLife life(Children());
    CWidget::Select();
    if (!life.IsOver())
    {
        BringToFront();
        QueueRedraw();
    }
}

void CWindow::Deselect()
{
    const CLife life(Children());
    CWidget::Deselect();
    if (!life.IsOver())
    {
        QueueRedraw();
    }
}

void CWindow::DrawSelf() const
{
    if (HasTitleBar())
    {
        (Selected() ? m_activeTitleBar : m_inactiveTitleBar).Draw();
    }
}

void CWindow::Resize(int a_width, int a_height)
{
    if (!ResizeSelf(a_width, a_height))
    {
        return;
    }
    LoadTextures();
    const Core::SharedPtr<CPanel> panel = m_clientPanel;
    const std::int64_t clientTop = HasTitleBar() ? m_titleBarHeight : 0;
    panel->Resize(a_width, Common::detail::Saturated(a_height - clientTop));
}

// The operations on children may run handlers that destroy the window, so the panel is held in each of them.

void CWindow::AddChild(WidgetPtr a_child)
{
    const Core::SharedPtr<CPanel> panel = m_clientPanel;
    panel->AddChild(std::move(a_child));
}

void CWindow::AddChildren(std::list<WidgetPtr> a_children)
{
    const Core::SharedPtr<CPanel> panel = m_clientPanel;
    panel->AddChildren(std::move(a_children));
}

void CWindow::RemoveChild(WidgetPtr a_child)
{
    const Core::SharedPtr<CPanel> panel = m_clientPanel;
    panel->RemoveChild(std::move(a_child));
}

void CWindow::DestroyChild(WidgetPtr a_child)
{
    const Core::SharedPtr<CPanel> panel = m_clientPanel;
    panel->DestroyChild(std::move(a_child));
}

void CWindow::DestroyChild(CWidget* a_child)
{
    const Core::SharedPtr<CPanel> panel = m_clientPanel;
    panel->DestroyChild(a_child);
}

void CWindow::RemoveAllChildren()
{
    const Core::SharedPtr<CPanel> panel = m_clientPanel;
    panel->RemoveAllChildren();
}

bool CWindow::StartDragging(const Common::CPoint& a_point)
{
    if (a_point.Y() < 0 || a_point.Y() > m_titleBarHeight)
    {
        return false;
    }
    m_dragOrigin = TopLeft();
    m_dragging = true;
    return true;
}

void CWindow::UpdateDragging(const Common::CPoint& a_displacement)
{
    SetTopLeft(m_dragOrigin + a_displacement);
    // What the children clip to is a rectangle of the stage.
    CWidget::NotifyPositionChanged();
    PlaceActor();
}

void CWindow::EndDragging()
{
    m_dragging = false;
    PlaceActor();
    Invalidate(false);
}

void CWindow::PlaceActor()
{
    Platform::MoveActor(GetActor(), static_cast<float>(TopLeft().X()), static_cast<float>(TopLeft().Y()));
}

void CWindow::UpdateLocalisedText()
{
    m_title.Refresh();
    CWidget::UpdateLocalisedText();
}

void CWindow::UpdateStyle()
{
    if (!UpdateStyleSelf())
    {
        return;
    }
    m_title.UpdateStyle();
    LoadTextures();
    UpdateLabelPosition();
    QueueRedraw();
}

void CWindow::UpdateCustomInfo()
{
    SetCustomInfo("Title", Title());
    SetCustomInfo("Modal", TextFromBool((m_flags & ewfModal) != 0));
    SetCustomInfo("Draggable", TextFromBool((m_flags & ewfDraggable) != 0));
    SetCustomInfo("TitleBar", TextFromBool(HasTitleBar()));
}

} // namespace Gfx::Widgets
