#include "Widgets/Controls/Wizard/Wizard.h"

#include "Core/StaticSingleton.h"
#include "Gfx/Common/Alignment.h"
#include "Managers/Config/StyleKeys.h"
#include "Managers/Gfx/GfxManager.h"
#include "Managers/Widgets/WidgetManager.h"
#include "Widgets/Controls/Wizard/WizardStage.h"

#include <array>

namespace Gfx::Widgets
{

using Core::Patterns::StaticSingleton;

namespace
{

struct SStyle
{
    int margin = 10;
    int buttonWidth = 80;
    int buttonHeight = 80;
    int imageWidth = 64;
    int imageHeight = 64;
    std::string backwards = "Arrow_Left";
    std::string forwards = "Arrow_Right";
};

constexpr std::array s_styleKeys{
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/Wizard/Margin", &SStyle::margin},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/Wizard/Button/Width", &SStyle::buttonWidth},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/Wizard/Button/Height", &SStyle::buttonHeight},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/Wizard/Image/Width", &SStyle::imageWidth},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/Wizard/Image/Height", &SStyle::imageHeight},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/Wizard/Icons/Backwards", &SStyle::backwards},
    Managers::SStyleKey<SStyle>{"/Gfx/Controls/Wizard/Icons/Forwards", &SStyle::forwards},
};

const Managers::CGfxManager& Display()
{
    return StaticSingleton<Managers::CGfxManager>::ref();
}

/// Leaves a_widget, if it is a stage. The caller holds it.
void LeaveStage(CWidget* a_widget)
{
    if (auto* stage = dynamic_cast<CWizardStage*>(a_widget))
    {
        stage->Leave();
    }
}

} // namespace

CWizard::CWizard(const std::string& a_name)
    : CWindow(a_name, 0, 0, Display().DisplayWidth(), Display().DisplayHeight(), false, "", ewfModal)
    , m_backwardsHandler(this, &CWizard::BackwardsClick)
    , m_forwardsHandler(this, &CWizard::ForwardsClick)
{
    SetType("Wizard");
    const auto& style = Managers::ReadStyle(s_styleKeys);
    const int top = ClientHeight() - style.margin - style.buttonHeight;
    const auto addButton = [&](const char* a_button, int a_left, ClickMethod& a_handler, const std::string& a_icon)
    {
        const Core::SharedPtr<CButton> button(
            new CButton(a_button, a_left, top, style.buttonWidth, style.buttonHeight, false));
        button->SetClickEventHandler(&a_handler);
        button->SetImage(a_icon, eaCentre | eaMiddle, style.imageWidth, style.imageHeight);
        AddChild(button);
        return button;
    };
    m_backwardsButton = addButton("Backwards", style.margin, m_backwardsHandler, style.backwards);
    m_forwardsButton =
        addButton("Forwards", ClientWidth() - style.margin - style.buttonWidth, m_forwardsHandler, style.forwards);
}

CWizard::~CWizard()
{
    // The click in progress may hold a button for longer.
    m_backwardsButton->SetClickEventHandler(nullptr);
    m_forwardsButton->SetClickEventHandler(nullptr);
}

void CWizard::UpdateCustomInfo()
{
    ClearCustomInfo();
}

void CWizard::SelectStage(const std::string& a_name)
{
    const WidgetPtr next =
        StaticSingleton<Managers::CWidgetManager>::ref().FindWidget(ClientPanel().Get(), {std::string(a_name)});
    if (!next)
    {
        return;
    }
    const CLife life(Children());
    const WidgetPtr left = m_currentStage;
    LeaveStage(left.Get());
    if (life.IsOver())
    {
        return;
    }
    m_currentStage = next;
    next->BringToFront();
    if (auto* stage = dynamic_cast<CWizardStage*>(next.Get()))
    {
        stage->Enter();
    }
}

void CWizard::Progress()
{
    Step(true);
}

void CWizard::Regress()
{
    Step(false);
}

void CWizard::Step(bool a_forwards)
{
    const CLife life(Children());
    std::string next;
    if (m_navigateHandler != nullptr)
    {
        const std::string current = StageName();
        next = m_navigateHandler->Execute(a_forwards, current);
        if (life.IsOver())
        {
            return;
        }
    }
    // Asked again: the handler may have selected a stage itself.
    if (next == StageName())
    {
        return;
    }
    if (!next.empty())
    {
        SelectStage(next);
        return;
    }
    const WidgetPtr left = m_currentStage;
    LeaveStage(left.Get());
    if (!life.IsOver())
    {
        Hide();
    }
}

std::string CWizard::StageName() const
{
    return m_currentStage ? m_currentStage->Name() : "";
}

void CWizard::ToggleButtons(bool a_backwards, bool a_forwards)
{
    // A handler that the first runs may destroy the wizard.
    const Core::SharedPtr<CButton> backwards = m_backwardsButton;
    const Core::SharedPtr<CButton> forwards = m_forwardsButton;
    backwards->SetShowHide(a_backwards);
    forwards->SetShowHide(a_forwards);
}

void CWizard::ForwardsClick(CWidget*, int, const Common::CPoint&, bool)
{
    Progress();
}

void CWizard::BackwardsClick(CWidget*, int, const Common::CPoint&, bool)
{
    Regress();
}

} // namespace Gfx::Widgets
