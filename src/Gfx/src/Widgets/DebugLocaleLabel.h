#pragma once

#include "Core/Api.h"
#include "Gfx/Text/FontSettings.h"
#include "Gfx/Text/LocalisedText.h"
#include "Widgets/TextActor.h"

typedef struct _ClutterActor ClutterActor;

namespace Gfx::Widgets
{

/// What the debug mode of localisation shows over a control's text: its key, or a mark that it has none, and a frame
/// round the text. The mode is on by /Gfx/General/DebugLocaleLabels; otherwise none of this does anything.
class GFX_API CDebugLocaleLabel
{
public:
    /// Reads the keys of /Gfx/Debug/LocaleLabel/Font/.
    CDebugLocaleLabel();
    ~CDebugLocaleLabel();
    CDebugLocaleLabel(const CDebugLocaleLabel&) = delete;
    CDebugLocaleLabel& operator=(const CDebugLocaleLabel&) = delete;

    /// Whether the debug mode is on.
    [[nodiscard]] static bool IsOn();

    /// Makes the label in a control's group, when the control's text has been worked out, unless it is there already
    /// or the raw text is empty. It keeps what it was made with.
    void Update(ClutterActor* a_group, const Text::CLocalisedText& a_text, bool a_parseMarkup, int a_width);

    /// Places the label over the control's text, and the frame round it.
    void Place(ClutterActor* a_group, const CTextActor& a_text, const Common::SMargins& a_margins,
               const STextSize& a_textSize);

private:
    Text::CFontSettings m_font;
    CTextActor m_label;
    /// A reference.
    ClutterActor* m_frame = nullptr;
};

} // namespace Gfx::Widgets
