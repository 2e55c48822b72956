#include "Widgets/Widget.h"

#include "Core/Assert.h"
#include "Core/Logging/Logger.h"
#include "Core/StaticSingleton.h"
#include "Managers/Gfx/GfxManager.h"
#include "Managers/Widgets/WidgetManager.h"
#include "Platform/Clutter/Actor.h"
#include "Platform/Clutter/PaintedGroup.h"
#include "Widgets/EnhancedGroup.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <utility>

namespace Gfx::Widgets
{

namespace
{

constexpr CColour k_opaque{255, 255, 255, 255};
constexpr CColour k_dragged{255, 255, 255, 128};

Managers::CWidgetManager& WidgetManager()
{
    return Core::Patterns::StaticSingleton<Managers::CWidgetManager>::ref();
}

/// A text of the form "x,y"; what can't be read is 0.
Common::CPoint PointFromString(const std::string& a_text)
{
    std::size_t comma = 0;
    const int x = NumberFromText(a_text, 0, &comma);
    const bool hasY = comma > 0 && comma < a_text.size() && a_text[comma] == ',';
    return {x, hasY ? NumberFromText(a_text, comma + 1) : 0};
}

int Side(int a_length)
{
    return std::clamp(a_length, -CWidget::k_longestSide, CWidget::k_longestSide);
}

/// The ancestor that has no parent; the widget itself, if it has none.
CWidget& TopLevel(CWidget& a_widget)
{
    CWidget* widget = &a_widget;
    while (CWidget* const parent = widget->Parent())
    {
        widget = parent;
    }
    return *widget;
}

void DrawWidget(void* a_widget)
{
    static_cast<const CWidget*>(a_widget)->Draw();
}

/// Whether a handler that may refuse, if there is one, agrees, and the widget that has a_children has lived through it.
template <typename HandlerT, typename... ArgumentTs>
bool Agrees(const detail::CWidgetList& a_children, HandlerT* a_handler, ArgumentTs&&... a_arguments)
{
    if (a_handler == nullptr)
    {
        return true;
    }
    const detail::CWidgetList::CLife life(a_children);
    return a_handler->Execute(std::forward<ArgumentTs>(a_arguments)...) && !life.IsOver();
}

} // namespace

CWidget::CWidget(const std::string& a_name, const std::string& a_type, int a_x, int a_y, int a_width, int a_height,
                 bool a_scissor)
    : m_scissor(a_scissor)
    , m_topLeft(a_x, a_y)
    , m_width(Side(a_width))
    , m_height(Side(a_height))
    , m_name(a_name)
    , m_type(a_type)
{
    CWidget::SetTransparency(100, false);
}

CWidget::CWidget() : CWidget("", "", 0, 0, 0, 0, false) {}

void CWidget::InitialiseClutterGroup()
{
    ClutterActor* actor = m_scissor ? enhanced_group_new() : painted_group_new();
    if (actor == nullptr)
    {
        Core::Patterns::StaticSingleton<Core::Logging::CLogger>::ref().Log(Core::Logging::elMessage, "CWidget",
                                                                           "Failed to create group: %s", m_name);
        std::exit(1);
    }
    if (m_actor != nullptr)
    {
        painted_group_set_painter(PAINTED_GROUP(m_actor), nullptr, nullptr);
        g_object_unref(m_actor);
    }
    // The group's container holds it too; this reference keeps it valid for as long as the widget calls it.
    m_actor = CLUTTER_ACTOR(g_object_ref_sink(actor));
    Platform::MoveActor(m_actor, static_cast<float>(m_topLeft.X()), static_cast<float>(m_topLeft.Y()));
    painted_group_set_size(PAINTED_GROUP(m_actor), static_cast<float>(m_width), static_cast<float>(m_height));
    UpdateScissor({});
    painted_group_set_painter(PAINTED_GROUP(m_actor), DrawWidget, this);
    if (m_visibilityChangedHandler != nullptr)
    {
        m_visibilityChangedHandler->Execute(this, true);
    }
}

void CWidget::UpdateScissor(const Common::SMargins& a_margins)
{
    if (!m_scissor || m_actor == nullptr)
    {
        return;
    }
    const Common::CPoint absolute = AbsoluteTopLeft();
    const std::int64_t displayHeight = Core::Patterns::StaticSingleton<Managers::CGfxManager>::ref().DisplayHeight();
    // The rectangle begins at its lower left corner, and counts from the bottom of the display.
    enhanced_group_set_scissor(CLUTTER_ENHANCEDGROUP(m_actor),
                               Common::detail::Saturated(std::int64_t{absolute.X()} + a_margins.left),
                               Common::detail::Saturated(displayHeight - m_height - absolute.Y() + a_margins.bottom),
                               m_width - a_margins.Horizontal(), m_height - a_margins.Vertical());
}

CWidget::~CWidget()
{
    for (const WidgetPtr& child : m_children.Widgets())
    {
        Orphan(*child);
    }
    m_children.Clear();
    if (m_actor != nullptr)
    {
        painted_group_set_painter(PAINTED_GROUP(m_actor), nullptr, nullptr);
        if (clutter_actor_get_parent(m_actor) == nullptr)
        {
            // The last reference may be this one, and a group dies with all that it contains.
            painted_group_release_painted(m_actor);
        }
        g_object_unref(m_actor);
    }
}

ClutterActor* CWidget::GetActor()
{
    return m_actor;
}

Common::CAABB CWidget::AABB() const
{
    const Common::CPoint absolute = AbsoluteTopLeft();
    return {absolute.X(), absolute.Y(), m_width, m_height};
}

void CWidget::Hide()
{
    SetVisible(false);
}

void CWidget::Show()
{
    SetVisible(true);
}

void CWidget::SetVisible(bool a_visible)
{
    if (m_visible == a_visible)
    {
        return;
    }
    if (ClutterActor* actor = GetActor())
    {
        if (a_visible)
        {
            clutter_actor_show(actor);
        }
        else
        {
            clutter_actor_hide(actor);
        }
    }
    if (!Agrees(m_children, m_visibilityChangedHandler, this, a_visible))
    {
        return;
    }
    m_visible = a_visible;
    if (m_parent != nullptr)
    {
        m_parent->ChildVisibilityChanged();
    }
}

void CWidget::ChildVisibilityChanged() {}

void CWidget::Modal(bool a_modal)
{
    m_modal = a_modal;
}

bool CWidget::Modal() const
{
    return m_modal;
}

void CWidget::Select()
{
    if (SetSelected(true) && m_parent != nullptr)
    {
        m_parent->Select();
    }
}

void CWidget::Deselect()
{
    if (SetSelected(false) && m_parent != nullptr)
    {
        m_parent->Deselect();
    }
}

bool CWidget::SetSelected(bool a_selected)
{
    // An ancestor that is told of a selection is held by nobody on the way.
    const detail::CWidgetList::CLife life(m_children);
    m_selected = a_selected;
    if (m_selectedChangedHandler != nullptr)
    {
        m_selectedChangedHandler->Execute(this, a_selected);
    }
    return !life.IsOver();
}

void CWidget::Invalidate(bool a_recursive)
{
    QueueRedraw();
    if (a_recursive)
    {
        detail::CWidgetList::CDownwards children(m_children);
        while (const WidgetPtr child = children.Next())
        {
            child->Invalidate(true);
        }
    }
}

void CWidget::QueueRedraw()
{
    if (ClutterActor* actor = GetActor())
    {
        clutter_actor_queue_redraw(actor);
    }
}

void CWidget::DrawSelf() const {}

void CWidget::Idle()
{
    detail::CWidgetList::CDownwards children(m_children);
    while (const WidgetPtr child = children.Next())
    {
        if (child->Visible())
        {
            child->Idle();
        }
    }
}

void CWidget::NotifyPositionChanged()
{
    detail::CWidgetList::CDownwards children(m_children);
    while (const WidgetPtr child = children.Next())
    {
        child->NotifyPositionChanged();
    }
}

void CWidget::Move(const Common::CPoint& a_topLeft)
{
    // The handler may change what the argument refers to.
    const Common::CPoint topLeft = a_topLeft;
    if (!Agrees(m_children, m_moveHandler, this, topLeft))
    {
        return;
    }
    m_topLeft = topLeft;
    if (ClutterActor* actor = GetActor())
    {
        Platform::MoveActor(actor, static_cast<float>(topLeft.X()), static_cast<float>(topLeft.Y()));
    }
    Invalidate(false);
}

void CWidget::Resize(int a_width, int a_height)
{
    static_cast<void>(ResizeSelf(a_width, a_height));
}

bool CWidget::ResizeSelf(int a_width, int a_height)
{
    const CLife life(m_children);
    if (Agrees(m_children, m_resizeHandler, this, a_width, a_height))
    {
        m_width = Side(a_width);
        m_height = Side(a_height);
        if (m_actor != nullptr)
        {
            painted_group_set_size(PAINTED_GROUP(m_actor), static_cast<float>(m_width), static_cast<float>(m_height));
        }
        Invalidate(false);
    }
    return !life.IsOver();
}

bool CWidget::CanBeChild()
{
    return true;
}

void CWidget::AddChild(WidgetPtr a_child)
{
    const WidgetPtr& childPtr = a_child;
    if (childPtr)
    {
        GFX_ASSERT(childPtr->CanBeChild());
    }
    // Asked only now, as an override of the above may have changed what lies where.
    if (!childPtr || childPtr.Get() == this || childPtr->HasChild(this))
    {
        Core::Patterns::StaticSingleton<Core::Logging::CLogger>::ref().Log(
            Core::Logging::elMessage, "CWidget", "Can't add %s to %s", childPtr ? childPtr->GetName() : "a null widget",
            GetName());
        return;
    }
    m_children.AddToFront(childPtr);
    if (!Adopt(childPtr))
    {
        return;
    }
    childPtr->m_parent = this;
    childPtr->Invalidate(false);
    childPtr->NotifyPositionChanged();
}

bool CWidget::Adopt(const WidgetPtr& a_child)
{
    if (GetActor() == nullptr)
    {
        InitialiseClutterGroup();
    }
    if (a_child->GetActor() == nullptr)
    {
        a_child->InitialiseClutterGroup();
    }
    ClutterActor* const actor = a_child->GetActor();
    // Without this reference the actor might die on its way.
    g_object_ref(actor);
    const CLife life(m_children);
    WidgetManager().Detach(a_child);
    // The parent that it leaves may have run handlers that ended this widget, or gave the child to another one.
    const bool isStray = clutter_actor_get_parent(actor) == nullptr;
    const bool isAdopted = isStray && !life.IsOver() && m_children.Find(a_child.Get());
    if (isAdopted)
    {
        if (clutter_actor_contains(actor, GetActor()) != FALSE)
        {
            // Some ancestor was a part of the child before, and its actor still lies in there.
            ClutterActor* const topmost = TopLevel(*this).GetActor();
            clutter_container_remove_actor(CLUTTER_CONTAINER(clutter_actor_get_parent(topmost)), topmost);
        }
        clutter_container_add_on_top(GetActor(), actor);
        a_child->ShowAsItWas();
    }
    else if (!life.IsOver())
    {
        m_children.Remove(a_child.Get());
    }
    g_object_unref(actor);
    return isAdopted;
}

void CWidget::ShowAsItWas()
{
    // The scene graph shows a hidden actor that changes its container, and DestroyWidget has hidden a shown one.
    if (!m_visible)
    {
        clutter_actor_hide(GetActor());
    }
    else if (m_destroyed)
    {
        clutter_actor_show(GetActor());
    }
    m_destroyed = false;
}

void CWidget::AddChildren(std::list<WidgetPtr> a_children)
{
    const CLife life(m_children);
    for (const WidgetPtr& child : a_children)
    {
        // An override's work may run a handler that ends this widget.
        if (!life.IsOver())
        {
            AddChild(child);
        }
    }
}

void CWidget::Orphan(CWidget& a_child)
{
    // The pointer must not outlive the parent.
    if (a_child.m_parent == this)
    {
        a_child.m_parent = nullptr;
    }
}

void CWidget::RemoveChild(WidgetPtr a_child)
{
    if (const WidgetPtr removed = m_children.Remove(a_child.Get()))
    {
        Orphan(*removed);
    }
}

void CWidget::DestroyChild(WidgetPtr a_child)
{
    DestroyFoundChild(m_children.Find(a_child.Get()));
}

void CWidget::DestroyChild(CWidget* a_child)
{
    DestroyFoundChild(m_children.Find(a_child));
}

void CWidget::DestroyFoundChild(const WidgetPtr& a_child)
{
    if (!a_child)
    {
        return;
    }
    CWidget* const parent = a_child->Parent();
    if (parent != nullptr && parent != this)
    {
        // A handler has given it to another one while it was being added here.
        m_children.Remove(a_child.Get());
        parent->DestroyChild(a_child);
        return;
    }
    const CLife life(m_children);
    WidgetManager().DestroyWidget(a_child.Get());
    // A press or a selection that this has ended may have been the last to hold this widget.
    if (!life.IsOver() && m_children.Remove(a_child.Get()))
    {
        Orphan(*a_child);
    }
}

void CWidget::RemoveAllChildren()
{
    for (const WidgetPtr& child : m_children.Widgets())
    {
        Orphan(*child);
    }
    m_children.Clear();
}

Common::CPoint CWidget::AbsoluteTopLeft() const
{
    return m_parent != nullptr ? m_topLeft + m_parent->AbsoluteTopLeft() : m_topLeft;
}

bool CWidget::Draggable() const
{
    return false;
}

bool CWidget::StartDragging(const Common::CPoint&)
{
    return false;
}

void CWidget::UpdateDragging(const Common::CPoint&) {}

void CWidget::EndDragging() {}

bool CWidget::IsDragging() const
{
    return m_parent != nullptr && m_parent->IsDragging();
}

bool CWidget::TransparentOnDrag() const
{
    return false;
}

void CWidget::MouseEvent(Events::EMouseEvent a_event, int a_buttons, const Common::CPoint& a_point, bool a_remote)
{
    if (a_remote && m_remoteLockout)
    {
        return;
    }
    // Whoever sends an event by another road than the dispatch may not hold the widget.
    const CLife life(m_children);
    if (m_mouseHandler != nullptr)
    {
        m_mouseHandler->Execute(this, a_event, a_buttons, a_point, a_remote);
    }
    if (!life.IsOver() && a_event == Events::NonClientHit && m_nonClientHitHandler != nullptr)
    {
        m_nonClientHitHandler->Execute(this);
    }
    if (!life.IsOver() && a_event == Events::FirstClick && m_clickHandler != nullptr)
    {
        m_clickHandler->Execute(this, a_buttons, a_point, a_remote);
    }
    if (!life.IsOver())
    {
        ChildReceivedMouseEvent();
    }
}

void CWidget::ChildReceivedMouseEvent()
{
    if (m_parent != nullptr)
    {
        m_parent->ChildReceivedMouseEvent();
    }
}

void CWidget::KeyboardEvent(unsigned int) {}

void CWidget::SetProperty(const std::string& a_name, const std::string& a_value)
{
    if (a_name == "Visible")
    {
        SetShowHide(IsTrue(a_value));
    }
    else if (a_name == "Opacity")
    {
        SetTransparency(NumberFromText(a_value), false);
    }
    else if (a_name == "Position")
    {
        Move(PointFromString(a_value));
    }
    else
    {
        Record().properties[a_name] = a_value;
    }
}

std::string CWidget::GetProperty(const std::string& a_name, const std::string& a_default)
{
    if (a_name == "Visible")
    {
        return TextFromBool(m_visible);
    }
    if (a_name == "Opacity")
    {
        return std::to_string(m_opacity);
    }
    if (a_name == "RemoteLockout")
    {
        return TextFromBool(m_remoteLockout);
    }
    if (m_record == nullptr)
    {
        return a_default;
    }
    const auto property = m_record->properties.find(a_name);
    return property != m_record->properties.end() ? property->second : a_default;
}

void CWidget::SetTransparency(int a_opacity, bool a_recursive)
{
    m_transparencyEnabled = true;
    m_opacity = a_opacity;
    if (m_opacity > 99)
    {
        m_opacity = 100;
        m_transparencyEnabled = false;
    }
    else if (m_opacity < 0)
    {
        m_opacity = 0;
    }
    m_transparencyColour = k_opaque.Opacity(static_cast<float>(m_opacity) / 100.0F);
    QueueRedraw();
    if (a_recursive)
    {
        detail::CWidgetList::CUpwards children(m_children);
        while (const WidgetPtr child = children.Next())
        {
            child->SetTransparency(a_opacity, true);
        }
    }
}

int CWidget::GetTransparency() const
{
    return m_opacity;
}

void CWidget::EnableTransparency()
{
    m_transparencyEnabled = true;
    QueueRedraw();
}

void CWidget::DisableTransparency()
{
    m_transparencyEnabled = false;
    QueueRedraw();
}

void CWidget::UpdateLocalisedText()
{
    detail::CWidgetList::CUpwards children(m_children);
    while (const WidgetPtr child = children.Next())
    {
        child->UpdateLocalisedText();
    }
}

void CWidget::UpdateStyle()
{
    static_cast<void>(UpdateStyleSelf());
}

bool CWidget::UpdateStyleSelf()
{
    const CLife life(m_children);
    detail::CWidgetList::CUpwards children(m_children);
    while (const WidgetPtr child = children.Next())
    {
        child->UpdateStyle();
    }
    return !life.IsOver();
}

void CWidget::UpdateCustomInfo() {}

std::vector<SPropertyInfo> CWidget::Properties() const
{
    return {
        {"Visible", true, true}, {"Opacity", true, true}, {"Position", false, true}, {"RemoteLockout", true, false}};
}

void CWidget::SetShowHide(bool a_show)
{
    if (a_show)
    {
        Show();
    }
    else
    {
        Hide();
    }
}

void CWidget::Enable()
{
    SetEnabled(true);
}

void CWidget::Disable()
{
    SetEnabled(false);
}

void CWidget::SetEnabled(bool a_enabled)
{
    if (m_enabled == a_enabled || !Agrees(m_children, m_enabledChangedHandler, this, a_enabled))
    {
        return;
    }
    m_enabled = a_enabled;
    Invalidate(false);
}

std::string CWidget::GetName(bool) const
{
    return m_parent != nullptr ? m_parent->GetName() + ":" + m_name : m_name;
}

Common::CPoint CWidget::FromAbsoluteToChildCoordinates(const Common::CPoint& a_point) const
{
    return a_point - AbsoluteTopLeft();
}

bool CWidget::AbsolutePointInWidget(const Common::CPoint& a_point) const
{
    return FromAbsoluteToChildCoordinates(a_point).InBoundingBox({0, 0}, m_width, m_height);
}

bool CWidget::Intersects(const WidgetPtr& a_other) const
{
    return a_other && AABB().Intersects(a_other->AABB());
}

int CWidget::IntersectionArea(const Common::CAABB& a_box) const
{
    return AABB().IntersectionArea(a_box);
}

bool CWidget::HasChild(const CWidget* a_widget) const
{
    for (const WidgetPtr& child : m_children.Widgets())
    {
        if (child.Get() == a_widget || child->HasChild(a_widget))
        {
            return true;
        }
    }
    return false;
}

void CWidget::BringToFront()
{
    if (m_parent != nullptr)
    {
        m_parent->BringChildToFront(this);
    }
    else
    {
        WidgetManager().BringToFront(this);
    }
}

void CWidget::SendToBack()
{
    if (m_parent != nullptr)
    {
        m_parent->SendChildToBack(this);
    }
    else
    {
        WidgetManager().SendToBack(this);
    }
}

void CWidget::BringChildToFront(CWidget* a_child)
{
    if (const WidgetPtr child = m_children.Find(a_child))
    {
        // A child that was destroyed behind its parent's back may have left the group already.
        if (clutter_actor_get_parent(child->GetActor()) == GetActor())
        {
            clutter_container_raise_child(CLUTTER_CONTAINER(GetActor()), child->GetActor(), nullptr);
        }
        m_children.MoveToFront(a_child);
    }
}

void CWidget::SendChildToBack(CWidget* a_child)
{
    if (const WidgetPtr child = m_children.Find(a_child))
    {
        if (clutter_actor_get_parent(child->GetActor()) == GetActor())
        {
            clutter_container_lower_child(CLUTTER_CONTAINER(GetActor()), child->GetActor(), nullptr);
        }
        m_children.MoveToBack(a_child);
    }
}

void CWidget::Draw() const
{
    if (!WidgetManager().IsVisible(this))
    {
        return;
    }
    cogl_push_matrix();
    CColour colour = k_opaque;
    if (m_transparencyEnabled)
    {
        colour = m_transparencyColour;
    }
    else if ((m_parent != nullptr && m_parent->IsDragging()) || (IsDragging() && TransparentOnDrag()))
    {
        colour = k_dragged;
    }
    const ClutterColor current = colour.AsClutterColour();
    cogl_color(&current);
    DrawSelf();
    cogl_pop_matrix();
}

const std::map<std::string, std::string>& CWidget::GetCustomInfo()
{
    SRecord& record = Record();
    for (const auto& [name, value] : record.properties)
    {
        record.customInfo[name] = value;
    }
    UpdateCustomInfo();
    return record.customInfo;
}

std::string CWidget::GetWidgetInfo()
{
    // An UpdateCustomInfo on the way may destroy this widget.
    const WidgetPtr self = Self();
    return UpdatedStatus().GetFileContents();
}

CWidget::SRecord& CWidget::Record()
{
    if (m_record == nullptr)
    {
        m_record = std::make_unique<SRecord>();
    }
    return *m_record;
}

const CWidgetStatus& CWidget::UpdatedStatus()
{
    CWidgetStatus& status = Record().status;
    status.UpdateStatus(GetName(), m_type, m_topLeft.X(), m_topLeft.Y(), m_width, m_height, m_visible, m_enabled,
                        m_selected, this);
    return status;
}

CWidget::WidgetPtr CWidget::Self() const
{
    return (m_parent != nullptr ? m_parent->m_children : WidgetManager().m_widgets).Find(this);
}

void CWidget::SetCustomInfo(const std::string& a_name, const std::string& a_value)
{
    Record().customInfo[a_name] = a_value;
}

} // namespace Gfx::Widgets
