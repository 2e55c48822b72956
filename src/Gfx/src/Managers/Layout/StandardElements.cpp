// The kinds of elements that a layout file can name.

#include "Layout/ButtonElement.h"
#include "Layout/CheckboxElement.h"
#include "Layout/EditBoxElement.h"
#include "Layout/Frame3DElement.h"
#include "Layout/GraphElement.h"
#include "Layout/ImageElement.h"
#include "Layout/KeyboardElement.h"
#include "Layout/LabelElement.h"
#include "Layout/ListBoxElement.h"
#include "Layout/ListGridElement.h"
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
SStandardElement Standard(const char* a_type, const char* a_description)
{
    return {a_type, a_description, &ElementBuilder<T>, [] { return std::unique_ptr<Layout::CElement>(new T); }};
}

} // namespace

const std::vector<SStandardElement>& StandardElements()
{
    using namespace Gfx::Layout;
    static const std::vector<SStandardElement> s_elements{
        Standard<C3DFrameElement>("Frame3D", "a scene of models, to which the application adds them"),
        Standard<CButtonElement>("Button", "a button with a text, an image or both"),
        Standard<CCheckboxElement>("CheckBox", "a box to tick, with a text beside it"),
        Standard<CEditBoxElement>("EditBox", "a field for one line of text"),
        Standard<CGraphElement>("Graph", "series of points as lines, which the application adds"),
        Standard<CImageElement>("Image", "a picture: a texture element, or a file"),
        Standard<CKeyboardElement>("Keyboard", "a keyboard on the screen; not within another element"),
        Standard<CLabelElement>("Label", "a text, with or without a background"),
        Standard<CListBoxElement>("ListBox", "items to choose from, one below the other"),
        Standard<CListGridElement>("ListGrid", "items to choose from, as tiles in rows"),
        Standard<CPanelElement>("Panel", "a container whose content may scroll"),
        Standard<CProgressBarElement>("ProgressBar", "a bar that fills"),
        Standard<CRadioGroupElement>("RadioGroup", "radio buttons of which one is on; for containers"),
        Standard<CScrollbarElement>("Scrollbar", "a slider between two steppers"),
        Standard<CTextBoxElement>("TextBox", "a long text that scrolls"),
        Standard<CWindowElement>("Window", "a container with a title bar that can be dragged"),
        Standard<CWizardStageElement>("WizardStage", "a page of a wizard"),
    };
    return s_elements;
}

} // namespace Gfx::Managers
