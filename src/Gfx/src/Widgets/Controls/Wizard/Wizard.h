#pragma once

#include "Core/Api.h"
#include "Core/Functor.h"
#include "Core/SharedPtr.h"
#include "Widgets/Controls/Button/Button.h"
#include "Widgets/Controls/Window/Window.h"

#include <string>

namespace Gfx::Widgets
{

/// A modal window over the whole display that leads through pages, with a button back and a button on. The pages are
/// CWizardStage widgets, added with AddChild; which of them comes next is asked of the navigate handler.
///
/// A wizard starts with SelectStage and ends hidden, so it can be shown and started again.
///
/// Configuration, below `/Gfx/Controls/Wizard/`: `Margin` (10, from the buttons to the edges), `Button/Width` and
/// `Height` (80), `Image/Width` and `Height` (64), `Icons/Backwards` ("Arrow_Left") and `Forwards` ("Arrow_Right").
///
/// \code
/// wizard->AddChild(welcome);
/// wizard->AddChild(network);
/// wizard->SetNavigateEventHandler(navigate);
/// widgets.AddWidget(wizard);
/// wizard->SelectStage("Welcome");
/// \endcode
class GFX_API CWizard : public CWindow
{
public:
    using NavigateHandler = Core::Functor<const std::string, bool, const std::string&>::Signature;

    explicit CWizard(const std::string& a_name);
    ~CWizard() override;

    void UpdateCustomInfo() override;

    /// a_handler is told the direction (true: forwards) and the current stage's name, empty if there is none, and names
    /// the stage to show; the same name refuses the step (so does an empty one before the first stage), an empty
    /// one ends the wizard, as does a step without a handler. It stays the caller's.
    void SetNavigateEventHandler(NavigateHandler* a_handler) { m_navigateHandler = a_handler; }

    /// Leaves the current stage and enters the child of that name, which is brought to the front; it may be the same.
    /// A child that isn't a CWizardStage is only brought to the front. Does nothing if there is no such child.
    void SelectStage(const std::string& a_name);

    /// One step forwards or backwards, wherever the navigation handler says that this leads.
    void Progress();
    void Regress();

    /// Shows or hides each button.
    void ToggleButtons(bool a_backwards, bool a_forwards);

    /// For the buttons.
    void ForwardsClick(CWidget* a_widget, int a_button, const Common::CPoint& a_point, bool a_remote);
    void BackwardsClick(CWidget* a_widget, int a_button, const Common::CPoint& a_point, bool a_remote);

private:
    using ClickMethod = Core::Functor<void, CWidget*, int, const Common::CPoint&, bool>::Method<CWizard>;

    void Step(bool a_forwards);
    [[nodiscard]] std::string StageName() const;

    NavigateHandler* m_navigateHandler = nullptr;
    WidgetPtr m_currentStage;
    Core::SharedPtr<CButton> m_backwardsButton;
    Core::SharedPtr<CButton> m_forwardsButton;
    ClickMethod m_backwardsHandler;
    ClickMethod m_forwardsHandler;
};

} // namespace Gfx::Widgets
