#include "Widgets/ControlText.h"

namespace Gfx::Widgets
{

void CControlText::Create(ClutterActor* a_group, const std::string& a_text)
{
    m_group = a_group;
    m_actor.Create(a_group, m_font, a_text);
    m_actor.UseMarkup(m_parseMarkup);
    // Before the text is first laid out: lines that are aligned later are laid out again.
    m_actor.AlignLines(m_font.alignment);
}

void CControlText::Refresh()
{
    m_text.Refresh();
    if (Exists())
    {
        m_actor.SetText(m_text.Display());
    }
}

void CControlText::Font(const Text::CFontSettings& a_font)
{
    m_font = a_font;
    if (Exists())
    {
        m_actor.SetFont(m_font);
    }
}

void CControlText::UpdateStyle()
{
    m_font.UpdateStyle();
    if (Exists())
    {
        m_actor.SetFont(m_font);
    }
}

bool CControlText::ParseMarkup(bool a_parse)
{
    if (a_parse == m_parseMarkup)
    {
        return false;
    }
    m_parseMarkup = a_parse;
    if (Exists())
    {
        m_actor.UseMarkup(a_parse);
    }
    return true;
}

void CControlText::Place(const STextSize& a_box, const STextSize& a_text, const Common::SMargins& a_margins,
                         ECentring a_centring)
{
    Place(a_box, a_text, a_margins, m_font.alignment, a_centring);
}

void CControlText::Place(const STextSize& a_box, const STextSize& a_text, const Common::SMargins& a_margins,
                         int a_alignment, ECentring a_centring)
{
    m_actor.AlignLines(a_alignment);
    m_actor.MoveTo(PlaceText(a_box, a_text, a_margins, a_alignment, a_centring));
}

void CControlText::UpdateDebugLabel(int a_width)
{
    if (m_debugLabel == nullptr && CDebugLocaleLabel::IsOn())
    {
        m_debugLabel = std::make_unique<CDebugLocaleLabel>();
    }
    if (m_debugLabel != nullptr)
    {
        m_debugLabel->Update(m_group, m_text, m_parseMarkup, a_width);
    }
}

void CControlText::PlaceDebugLabel(const Common::SMargins& a_margins, const STextSize& a_text)
{
    if (m_debugLabel != nullptr)
    {
        m_debugLabel->Place(m_group, m_actor, a_margins, a_text);
    }
}

} // namespace Gfx::Widgets
