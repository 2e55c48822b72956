// The kinds of elements that a layout file can name.

#include "Layout/ButtonElement.h"
#include "Layout/CheckboxElement.h"
#include "Layout/ImageElement.h"
#include "Layout/LabelElement.h"
#include "Layout/PanelElement.h"
#include "Layout/ProgressBarElement.h"
#include "Layout/RadioGroupElement.h"
#include "Layout/ScrollbarElement.h"
#include "Layout/TextBoxElement.h"
#include "Layout/WindowElement.h"
#include "Layout/WizardStageElement.h"
#include "Managers/Layout/LayoutManager.h"

namespace Gfx::Managers
{

namespace
{

template <typename T>
SStandardElement Standard(const char* a_type)
{
    return {a_type, &ElementBuilder<T>, [] { return std::unique_ptr<Layout::CElement>(new T); }};
}

} // namespace

const std::vector<SStandardElement>& StandardElements()
{
    using namespace Gfx::Layout;
    static const std::vector<SStandardElement> s_elements{
        Standard<CButtonElement>("Button"),
        Standard<CCheckboxElement>("CheckBox"),
        Standard<CImageElement>("Image"),
        Standard<CLabelElement>("Label"),
        Standard<CPanelElement>("Panel"),
        Standard<CProgressBarElement>("ProgressBar"),
        Standard<CRadioGroupElement>("RadioGroup"),
        Standard<CScrollbarElement>("Scrollbar"),
        Standard<CTextBoxElement>("TextBox"),
        Standard<CWindowElement>("Window"),
        Standard<CWizardStageElement>("WizardStage"),
    };
    return s_elements;
}

} // namespace Gfx::Managers
