#include "Widgets/Controls/NumericEditBox/NumericEditBox.h"

#include "Core/StaticSingleton.h"
#include "Gfx/Common/Alignment.h"
#include "Managers/Config/ConfigManager.h"
#include "Platform/Clutter/Clutter.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace Gfx::Widgets
{

namespace
{

constexpr unsigned int k_backspace = 0xFF08;
constexpr unsigned int k_nextField = '.';

/// A handler that changes the fields is told of each of them, and so on: the number of calls grows with every round,
/// so it is the number of them all that has an end, and not the depth alone as with a single field.
constexpr int k_mostNotifications = 100;

constexpr std::array s_properties{
    SProperty<CNumericEditBox>{"Text", [](const CNumericEditBox& a_box) { return a_box.Text(); },
                               [](CNumericEditBox& a_box, const std::string& a_value) { a_box.Text(a_value); }},
};

} // namespace

const std::string CNumericEditBox::FIELD_ZERO_VALUE = "0";

std::span<const SProperty<CNumericEditBox>> CNumericEditBox::PropertyTable()
{
    return s_properties;
}

CNumericEditBox::CNumericEditBox(const std::string& a_name, int a_x, int a_y, int a_width, int a_height,
                                 const std::vector<SField>& a_fields)
    : CWithProperties(a_name, "NumericEditBox", a_x, a_y, a_width, a_height, false)
    , m_font("NumericEditBox")
    , m_fields(a_fields)
{
    InitialiseClutterGroup();
    ReadStyle();
    UpdateLayout();
}

CNumericEditBox::~CNumericEditBox()
{
    ReleaseFields();
}

void CNumericEditBox::ReadStyle()
{
    const auto& config = Core::Patterns::StaticSingleton<Managers::CConfigManager>::ref();
    const int labelSize = config.Get<int>("/Gfx/Controls/NumericEditBox/Label/Size", 30);
    m_labelSize = m_fields.empty() ? 0 : std::clamp(labelSize, -k_longestSide, k_longestSide);
}

void CNumericEditBox::Fields(const std::vector<SField>& a_fields)
{
    m_fields = a_fields;
    ReadStyle();
    UpdateLayout();
}

void CNumericEditBox::UpdateLayout()
{
    ReleaseFields();
    const std::vector<WidgetPtr> old = Children().Widgets();
    RemoveAllChildren();
    for (const WidgetPtr& child : old)
    {
        // It is no widget's any more, so nobody else would take it off the screen.
        if (clutter_actor_get_parent(child->GetActor()) == GetActor())
        {
            clutter_container_remove_actor(CLUTTER_CONTAINER(GetActor()), child->GetActor());
        }
    }
    if (m_fields.empty())
    {
        AddChild(MakeField(Name(), 0, Width()));
        return;
    }
    const std::vector<SPlace> places = Places();
    for (std::size_t i = 0; i < m_fields.size(); ++i)
    {
        const SField& field = m_fields[i];
        const std::string name = Name() + "_" + field.label;
        const FieldPtr box = MakeField(name, places[i].x, FieldWidth());
        if (field.length != -1)
        {
            box->MaximumLength(field.length);
        }
        Core::SharedPtr<CLabel> label;
        if (!field.label.empty())
        {
            label = Core::SharedPtr<CLabel>(new CLabel(name + "Label", places[i].labelX, 0, m_labelSize, Height(),
                                                       false, false, false, field.label, true));
            label->Font(m_font);
            label->Background(false);
            AddChild(label);
        }
        m_labels.push_back(label);
        AddChild(box);
    }
}

void CNumericEditBox::ReleaseFields()
{
    for (const FieldPtr& field : m_children)
    {
        field->SetClickEventHandler(nullptr);
        field->SetMouseEventHandler(nullptr);
        field->SetTextChangedEventHandler(nullptr);
    }
    m_children.clear();
    m_labels.clear();
    m_activeField = nullptr;
}

CNumericEditBox::FieldPtr CNumericEditBox::MakeField(const std::string& a_name, int a_x, int a_width)
{
    FieldPtr field(new CEditBox(a_name, a_x, 0, a_width, Height(), false, ""));
    field->Font(m_font);
    field->SetClickEventHandler(&m_fieldClickHandler);
    field->SetTextChangedEventHandler(&m_fieldChangedHandler);
    m_children.push_back(field);
    return field;
}

int CNumericEditBox::FieldWidth() const
{
    return m_fields.empty() ? Width() : Width() / static_cast<int>(m_fields.size()) - m_labelSize;
}

std::vector<CNumericEditBox::SPlace> CNumericEditBox::Places() const
{
    std::vector<SPlace> places;
    std::int64_t x = 0;
    for (const SField& field : m_fields)
    {
        const std::int64_t labelX = x + FieldWidth();
        places.push_back({Common::detail::Saturated(x), Common::detail::Saturated(labelX)});
        x = field.label.empty() ? labelX : labelX + m_labelSize;
    }
    return places;
}

std::string CNumericEditBox::Text() const
{
    if (m_fields.empty())
    {
        return m_children.front()->Text();
    }
    std::string text;
    for (std::size_t i = 0; i < m_children.size(); ++i)
    {
        const std::string value = m_children[i]->Text();
        text += (value.empty() ? FIELD_ZERO_VALUE : value) + m_fields[i].label;
    }
    return text;
}

void CNumericEditBox::Text(const std::string& a_text)
{
    const CLife life(Children());
    // Handlers may give the widget other fields.
    const std::vector<SField> fields = m_fields;
    const std::vector<FieldPtr> boxes = m_children;
    if (fields.empty())
    {
        boxes.front()->Text(a_text);
    }
    std::string rest = a_text;
    for (std::size_t i = 0; i < fields.size() && !life.IsOver(); ++i)
    {
        const std::size_t end = rest.find(fields[i].label);
        if (end == std::string::npos)
        {
            boxes[i]->Text(FIELD_ZERO_VALUE);
            continue;
        }
        const std::string value = rest.substr(0, end);
        rest.erase(0, end + fields[i].label.size());
        boxes[i]->Text(value);
    }
    if (!life.IsOver())
    {
        UpdateCustomInfo();
    }
}

void CNumericEditBox::Font(const Text::CFontSettings& a_font)
{
    m_font = a_font;
    m_font.alignment = eaDefault;
    for (const FieldPtr& field : m_children)
    {
        field->Font(m_font);
    }
}

void CNumericEditBox::TextChanged()
{
    if (m_textChangedHandler == nullptr || m_notifications == k_mostNotifications)
    {
        return;
    }
    const CLife life(Children());
    const bool isOutermost = m_notifications == 0;
    ++m_notifications;
    m_textChangedHandler->Execute(this);
    if (isOutermost && !life.IsOver())
    {
        m_notifications = 0;
    }
}

void CNumericEditBox::TextChangedEvent(CWidget*)
{
    TextChanged();
}

void CNumericEditBox::SetMouseEditBoxListEventHandler(MouseHandler* a_handler)
{
    for (const FieldPtr& field : m_children)
    {
        field->SetMouseEventHandler(a_handler);
    }
}

CNumericEditBox::FieldPtr CNumericEditBox::FindField(const CWidget* a_widget) const
{
    const auto found = std::find_if(m_children.begin(), m_children.end(),
                                    [a_widget](const FieldPtr& a_field) { return a_field.Get() == a_widget; });
    return found != m_children.end() ? *found : FieldPtr();
}

CNumericEditBox::FieldPtr CNumericEditBox::ActiveOrFirstField()
{
    if (!FindField(m_activeField) && !m_children.empty())
    {
        m_activeField = m_children.front().Get();
    }
    return FindField(m_activeField);
}

void CNumericEditBox::Highlight(CWidget* a_widget)
{
    const CLife life(Children());
    const FieldPtr field = FindField(a_widget);
    UnHighlightActive();
    if (life.IsOver())
    {
        return;
    }
    m_activeField = field.Get();
    if (field)
    {
        field->LockActive(true);
        m_typedInField = false;
    }
}

void CNumericEditBox::UnHighlightActive()
{
    const FieldPtr field = FindField(m_activeField);
    if (!field)
    {
        return;
    }
    const CLife life(Children());
    if (field->TextLength() == 0)
    {
        field->Text(FIELD_ZERO_VALUE);
    }
    field->LockActive(false);
    if (!life.IsOver())
    {
        m_typedInField = false;
    }
}

void CNumericEditBox::HighlightFirst()
{
    if (const FieldPtr field = ActiveOrFirstField())
    {
        field->LockActive(false);
        field->LockActiveNoCursor(true);
        m_typedInField = false;
    }
}

void CNumericEditBox::Rotate(ERotationDirection a_direction)
{
    const auto active = std::find(m_children.begin(), m_children.end(), FindField(m_activeField));
    if (active == m_children.end())
    {
        return;
    }
    auto target = active;
    if (a_direction == erdForward && active + 1 != m_children.end())
    {
        ++target;
    }
    else if (a_direction == erdBackward && active != m_children.begin())
    {
        --target;
    }
    Highlight(target->Get());
}

void CNumericEditBox::ClickEvent(CWidget* a_field, int, const Common::CPoint&, bool)
{
    Highlight(a_field);
}

void CNumericEditBox::Resize(int a_width, int a_height)
{
    const CLife life(Children());
    if (!ResizeSelf(a_width, a_height))
    {
        return;
    }
    const std::vector<SPlace> places = m_fields.empty() ? std::vector<SPlace>{{0, 0}} : Places();
    const auto put = [&life](CWidget& a_part, int a_x, int a_partWidth, int a_partHeight)
    {
        a_part.Move({a_x, 0});
        if (!life.IsOver())
        {
            a_part.Resize(a_partWidth, a_partHeight);
        }
    };
    const std::vector<FieldPtr> boxes = m_children;
    const std::vector<Core::SharedPtr<CLabel>> labels = m_labels;
    for (std::size_t i = 0; i < boxes.size() && !life.IsOver(); ++i)
    {
        put(*boxes[i], places[i].x, FieldWidth(), Height());
        if (!life.IsOver() && i < labels.size() && labels[i])
        {
            put(*labels[i], places[i].labelX, m_labelSize, Height());
        }
    }
}

void CNumericEditBox::KeyboardEvent(unsigned int a_key)
{
    const CLife life(Children());
    if (!FindField(m_activeField))
    {
        m_typedInField = false;
    }
    if (const FieldPtr field = ActiveOrFirstField())
    {
        TypeInField(field, a_key);
    }
    if (!life.IsOver())
    {
        UpdateCustomInfo();
    }
}

void CNumericEditBox::TypeInField(const FieldPtr& a_field, unsigned int a_key)
{
    const CLife life(Children());
    a_field->LockActive(true);
    if (m_fields.size() < 2)
    {
        a_field->KeyboardEvent(a_key);
        return;
    }
    if (a_key == k_nextField)
    {
        Rotate(erdForward);
        return;
    }
    if (a_key == k_backspace && a_field->TextLength() == 0)
    {
        Rotate(erdBackward);
        return;
    }
    if (!m_typedInField)
    {
        a_field->Text("");
        if (life.IsOver())
        {
            return;
        }
        m_typedInField = true;
    }
    a_field->KeyboardEvent(a_key);
    // Unless a handler has already moved on.
    if (!life.IsOver() && m_activeField == a_field.Get() && a_field->TextLength() == a_field->MaximumLength())
    {
        Rotate(erdForward);
    }
}

void CNumericEditBox::UpdateStyle()
{
    if (UpdateStyleSelf())
    {
        m_font.UpdateStyle();
        Font(m_font);
    }
}

void CNumericEditBox::UpdateCustomInfo()
{
    SetCustomInfo("Text", Text());
}

} // namespace Gfx::Widgets
