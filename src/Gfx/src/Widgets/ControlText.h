#pragma once

#include "Core/Api.h"
#include "Gfx/Text/FontSettings.h"
#include "Gfx/Text/LocalisedText.h"
#include "Widgets/DebugLocaleLabel.h"
#include "Widgets/TextActor.h"

#include <memory>
#include <string>

typedef struct _ClutterActor ClutterActor;

namespace Gfx::Widgets
{

/// The text of a control with all that belongs to it: what the application set and what is shown, font, markup, the
/// actor in the control's group, and the debug locale label over it. When to lay it out, and in which order with its
/// other work, is the control's own business.
class GFX_API CControlText
{
public:
    /// The font is that of the kind of control, such as "Button".
    explicit CControlText(const std::string& a_controlName) : m_font(a_controlName) {}

    /// Makes the actor, in a widget's group. Without one only the stored texts and the font can be changed.
    void Create(ClutterActor* a_group, const std::string& a_text = "");

    [[nodiscard]] bool Exists() const { return m_actor.Exists(); }
    [[nodiscard]] CTextActor& Actor() { return m_actor; }

    /// Keeps a text; it is shown at the next Refresh().
    void SetRaw(const std::string& a_text) { m_text.SetRaw(a_text); }

    [[nodiscard]] const std::string& Raw() const { return m_text.Raw(); }
    [[nodiscard]] const std::string& Display() const { return m_text.Display(); }

    /// The key of a localised text, or else the text.
    [[nodiscard]] std::string Id() const { return m_text.Id(); }

    /// Shows the text, in the language that is in use now.
    void Refresh();

    /// A font that is given is shown at once; what is changed through the reference isn't.
    [[nodiscard]] const Text::CFontSettings& Font() const { return m_font; }
    [[nodiscard]] Text::CFontSettings& Font() { return m_font; }
    void Font(const Text::CFontSettings& a_font);

    /// Gives the font its colour in the current theme.
    void UpdateStyle();

    [[nodiscard]] bool ParseMarkup() const { return m_parseMarkup; }
    /// False if that changes nothing.
    bool ParseMarkup(bool a_parse);

    /// Places the text in a box by its font's alignment, or by another one.
    void Place(const STextSize& a_box, const STextSize& a_text, const Common::SMargins& a_margins,
               ECentring a_centring);
    void Place(const STextSize& a_box, const STextSize& a_text, const Common::SMargins& a_margins, int a_alignment,
               ECentring a_centring);

    /// In the debug mode of localisation: makes the label over the text once there is a text, and puts it there.
    void UpdateDebugLabel(int a_width);
    void PlaceDebugLabel(const Common::SMargins& a_margins, const STextSize& a_text);

private:
    ClutterActor* m_group = nullptr;
    std::unique_ptr<CDebugLocaleLabel> m_debugLabel;
    CTextActor m_actor;
    Text::CFontSettings m_font;
    Text::CLocalisedText m_text;
    bool m_parseMarkup = false;
};

} // namespace Gfx::Widgets
