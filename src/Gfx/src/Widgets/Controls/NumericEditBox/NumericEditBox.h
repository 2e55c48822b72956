#pragma once

#include "Core/Api.h"
#include "Core/Functor.h"
#include "Core/SharedPtr.h"
#include "Gfx/Text/FontSettings.h"
#include "Widgets/Controls/EditBox/EditBox.h"
#include "Widgets/Controls/Label/Label.h"
#include "Widgets/Property.h"
#include "Widgets/Widget.h"

#include <span>
#include <string>
#include <vector>

namespace Gfx::Widgets
{

/// An entry in several parts, such as an address with dots or a time: a row of edit boxes with fixed labels behind
/// them, or, without fields, a single edit box of any text.
///
/// Keys go to the active field, which is the one last touched, or else the first. The first key replaces what is in
/// it; a field that is full hands on to the next one, as a "." does, and a backspace in an empty field goes back. A
/// field that is left empty becomes "0". A single field takes every key as it is.
///
/// Property: "Text".
///
/// Configuration: `/Gfx/Controls/NumericEditBox/Label/Size` (30, a label's width), and the font's keys.
class GFX_API CNumericEditBox : public CWithProperties<CNumericEditBox, CWidget>
{
public:
    using TextChangedHandler = NotifyHandler;

    /// One part of the entry.
    struct SField
    {
        /// Shown behind the field, and part of the text.
        std::string label;
        /// The most characters that the field takes; -1 for no limit of its own.
        int length = -1;
    };

    /// Where Rotate() goes.
    enum ERotationDirection : int
    {
        erdForward = 0,
        erdBackward = 1
    };

    // NOLINTNEXTLINE(readability-identifier-naming): a name that applications know.
    static const std::string FIELD_ZERO_VALUE;

    [[nodiscard]] static std::span<const SProperty<CNumericEditBox>> PropertyTable();

    CNumericEditBox(const std::string& a_name, int a_x, int a_y, int a_width, int a_height,
                    const std::vector<SField>& a_fields);
    ~CNumericEditBox() override;

    /// Replaces all fields by new, empty ones, which have no mouse handler. None is active.
    void Fields(const std::vector<SField>& a_fields);

    /// The fields' texts, each with its label behind it; an empty field counts as "0", except where there are no
    /// fields declared.
    [[nodiscard]] std::string Text() const;

    /// Gives each field what stands before its label, from left to right. A field whose label isn't found becomes "0",
    /// and leaves the text to the ones behind it; one without a label becomes empty.
    void Text(const std::string& a_text);

    /// The alignment becomes top and left. The labels keep their font.
    [[nodiscard]] const Text::CFontSettings& Font() const { return m_font; }
    void Font(const Text::CFontSettings& a_font);

    /// Told, with this widget, of every change of a field's text; null for none. A handler that changes the text itself
    /// is called again for each field, though not without end.
    void SetTextChangedEventHandler(TextChangedHandler* a_handler) { m_textChangedHandler = a_handler; }
    void TextChanged();
    void TextChangedEvent(CWidget* a_field);

    /// One handler for all the fields that there are now, which must outlive them.
    void SetMouseEditBoxListEventHandler(MouseHandler* a_handler);

    /// Makes a field the active one; the next key replaces its text. Any other widget, and null, makes none active.
    void Highlight(CWidget* a_widget);
    void UnHighlightActive();

    /// The active field, or else the first one, is marked: the next key replaces its text.
    virtual void HighlightFirst();

    /// Goes to the next or previous field; at the end of the row the active field is highlighted anew.
    void Rotate(ERotationDirection a_direction);

    /// For the fields: a touch highlights one.
    void ClickEvent(CWidget* a_field, int a_buttons, const Common::CPoint& a_point, bool a_remote);

    /// Texts, handlers and the active field stay.
    void Resize(int a_width, int a_height) override;
    /// a_key is an X key symbol.
    void KeyboardEvent(unsigned int a_key) override;
    void UpdateStyle() override;
    void UpdateCustomInfo() override;

private:
    using FieldPtr = Core::SharedPtr<CEditBox>;

    /// Where a field and the label behind it lie, along the row.
    struct SPlace
    {
        int x;
        int labelX;
    };

    void ReadStyle();
    void UpdateLayout();
    void ReleaseFields();
    [[nodiscard]] FieldPtr MakeField(const std::string& a_name, int a_x, int a_width);
    [[nodiscard]] int FieldWidth() const;
    [[nodiscard]] std::vector<SPlace> Places() const;
    void TypeInField(const FieldPtr& a_field, unsigned int a_key);
    [[nodiscard]] FieldPtr FindField(const CWidget* a_widget) const;
    /// The first one becomes the active field if there is none; empty without any field.
    [[nodiscard]] FieldPtr ActiveOrFirstField();

    int m_labelSize = 0;
    Text::CFontSettings m_font;
    std::vector<SField> m_fields;
    std::vector<FieldPtr> m_children;
    /// One for each field; empty where the field has none.
    std::vector<Core::SharedPtr<CLabel>> m_labels;
    TextChangedHandler* m_textChangedHandler = nullptr;
    /// To be looked for among the fields only.
    const CWidget* m_activeField = nullptr;
    /// The active field has had its first key.
    bool m_typedInField = false;
    /// How many there have been since a change that no handler has made.
    int m_notifications = 0;
    /// Outlive the fields' use of them: the fields that are let go of lose them.
    Core::Functor<void, CWidget*, int, const Common::CPoint&, bool>::Method<CNumericEditBox> m_fieldClickHandler{
        this, &CNumericEditBox::ClickEvent};
    Core::Functor<void, CWidget*>::Method<CNumericEditBox> m_fieldChangedHandler{this,
                                                                                 &CNumericEditBox::TextChangedEvent};
};

} // namespace Gfx::Widgets
