#pragma once

#include "Core/Api.h"
#include "Widgets/Controls/Panel/Panel.h"

#include <string>

namespace Gfx::Widgets
{

/// A page of a CWizard: a panel that starts hidden and without a background, and is shown from Enter() to Leave(). It
/// leaves a strip of the display free at its bottom, for the wizard's buttons.
///
/// Configuration: `/Gfx/Controls/TextBox/Textures/Background` ("Panel_Up"), for when the background is switched on.
class GFX_API CWizardStage : public CPanel
{
public:
    CWizardStage(const std::string& a_name, bool a_allowScrolling);

    /// Shows the stage, then runs the enter handler.
    virtual void Enter();

    /// Runs the leave handler, then hides the stage.
    virtual void Leave();

    void SetEnterEventHandler(NotifyHandler* a_handler) { m_enterHandler = a_handler; }
    void SetLeaveEventHandler(NotifyHandler* a_handler) { m_leaveHandler = a_handler; }

private:
    NotifyHandler* m_enterHandler = nullptr;
    NotifyHandler* m_leaveHandler = nullptr;
};

} // namespace Gfx::Widgets
