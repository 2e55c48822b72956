#pragma once

#include "Core/Api.h"
#include "Core/Functor.h"
#include "Core/SharedPtr.h"
#include "Widgets/ControlText.h"
#include "Widgets/Controls/Panel/Panel.h"
#include "Widgets/Property.h"
#include "Widgets/TextureLayer.h"
#include "Widgets/Widget.h"

#include <list>
#include <span>
#include <string>

namespace Gfx::Widgets
{

/// A top-level frame: a title bar, if wanted, over a client panel that takes all children. It can be dragged by its
/// title bar, half transparent meanwhile, and a press anywhere in it raises it. A window is never a child.
///
/// Children are added to the client panel and removed from it, so their positions are relative to the panel, whose size
/// ClientWidth() and ClientHeight() tell. The window's mouse handler also hears what happens on the panel itself.
///
/// Properties: "Title", beside those of CWidget.
///
/// Configuration: `/Gfx/Controls/Window/TitleBarHeight` (20), `DefaultTitle` (empty), `Textures/ActiveTitleBar`
/// ("ActiveTitleBar", for the selected window), `Textures/InactiveTitleBar` ("InactiveTitleBar"), and the font's keys.
class GFX_API CWindow : public CWithProperties<CWindow, CWidget>
{
public:
    [[nodiscard]] static std::span<const SProperty<CWindow>> PropertyTable();

    /// What a window has and does.
    enum EFlag
    {
        ewfTitleBar = 1,
        ewfDraggable = 2,
        ewfModal = 4
    };

    /// a_allowScrolling is the client panel's. An empty a_title is the default one. a_flags is a sum of EFlag.
    CWindow(const std::string& a_name, int a_x, int a_y, int a_width, int a_height, bool a_allowScrolling,
            const std::string& a_title, int a_flags);
    ~CWindow() override;

    /// Takes the window off the screen; it dies of that, unless somebody holds it.
    virtual void Destroy();

    /// The size of the client panel, in pixels.
    virtual int ClientHeight();
    virtual int ClientWidth();

    /// Tells the window of an event on its client panel. For the panel; a_point is in its coordinates.
    virtual void ClientMouseEventHandler(CWidget* a_widget, Events::EMouseEvent a_event, int a_buttons,
                                         const Common::CPoint& a_point, bool a_remote);

    [[nodiscard]] const Text::CFontSettings& Font() const { return m_title.Font(); }
    /// The alignment is without effect: titles stand at the left.
    void Font(const Text::CFontSettings& a_font);

    /// The key of a localised title, or else the title. A window without a title bar starts with none.
    [[nodiscard]] std::string Title() const { return m_title.Id(); }
    void Title(const std::string& a_title);

    void Select() override;
    void Deselect() override;
    void DrawSelf() const override;
    void Resize(int a_width, int a_height) override;
    [[nodiscard]] bool CanBeChild() override { return false; }
    void AddChild(WidgetPtr a_child) override;
    void AddChildren(std::list<WidgetPtr> a_children) override;
    void RemoveChild(WidgetPtr a_child) override;
    void DestroyChild(WidgetPtr a_child) override;
    void DestroyChild(CWidget* a_child) override;
    void RemoveAllChildren() override;
    [[nodiscard]] bool Draggable() const override { return (m_flags & ewfDraggable) != 0; }
    /// Starts in the strip of the title bar's height, both edges included, whether or not there is a title bar.
    bool StartDragging(const Common::CPoint& a_point) override;
    /// The move handler isn't asked.
    void UpdateDragging(const Common::CPoint& a_displacement) override;
    void EndDragging() override;
    [[nodiscard]] bool IsDragging() const override { return m_dragging; }
    [[nodiscard]] bool TransparentOnDrag() const override { return true; }
    void UpdateLocalisedText() override;
    void UpdateStyle() override;
    void UpdateCustomInfo() override;

protected:
    /// Never null.
    [[nodiscard]] const Core::SharedPtr<CPanel>& ClientPanel() const { return m_clientPanel; }

private:
    [[nodiscard]] bool HasTitleBar() const { return (m_flags & ewfTitleBar) != 0; }
    void LoadTextures();
    void UpdateLabelPosition();
    void PlaceActor();

    CControlText m_title;
    int m_titleBarHeight = 0;
    int m_flags;
    bool m_dragging = false;
    Common::CPoint m_dragOrigin;
    CTextureLayer m_activeTitleBar;
    CTextureLayer m_inactiveTitleBar;
    Core::SharedPtr<CPanel> m_clientPanel;
    Core::Functor<void, CWidget*, Events::EMouseEvent, int, const Common::CPoint&, bool>::Method<CWindow>
        m_clientMouseHandler;
};

} // namespace Gfx::Widgets
