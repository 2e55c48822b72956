#include "Widgets/Controls/Wizard/WizardStage.h"

#include "Core/StaticSingleton.h"
#include "Managers/Config/ConfigManager.h"
#include "Managers/Gfx/GfxManager.h"

namespace Gfx::Widgets
{

using Core::Patterns::StaticSingleton;

namespace
{

constexpr int k_margin = 10;
/// What lies above and below a stage, the wizard's buttons included.
constexpr int k_freeHeight = 110;

const Managers::CGfxManager& Display()
{
    return StaticSingleton<Managers::CGfxManager>::ref();
}

} // namespace

CWizardStage::CWizardStage(const std::string& a_name, bool a_allowScrolling)
    : CPanel(a_name, k_margin, k_margin, Display().DisplayWidth() - 2 * k_margin,
             Display().DisplayHeight() - k_freeHeight, a_allowScrolling, true)
{
    SetType("WizardStage");
    Hide();
    Background(false);
    BackgroundTexture(StaticSingleton<Managers::CConfigManager>::ref().Get<std::string>(
        "/Gfx/Controls/TextBox/Textures/Background", "Panel_Up"));
}

void CWizardStage::Enter()
{
    const CLife life(Children());
    Show();
    if (!life.IsOver() && m_enterHandler != nullptr)
    {
        m_enterHandler->Execute(this);
    }
}

void CWizardStage::Leave()
{
    const CLife life(Children());
    if (m_leaveHandler != nullptr)
    {
        m_leaveHandler->Execute(this);
    }
    if (!life.IsOver())
    {
        Hide();
    }
}

} // namespace Gfx::Widgets
