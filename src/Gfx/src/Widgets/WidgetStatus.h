#pragma once

#include "Core/Api.h"

#include <string>

namespace Gfx::Widgets
{

class CWidget;

/// A text of the form of XML that tells what a widget and its visible descendants are, where, and with which values,
/// and the file that it is written to. Every widget has one, filled by CWidget::GetWidgetInfo; docs/dump.md has the
/// form.
class GFX_API CWidgetStatus
{
public:
    /// Renders the text. a_id is the widget's path and becomes the base of the file's name; a_x and a_y are relative to
    /// the parent. The custom info and the children are those of a_widget, which may be null; the children's own
    /// statuses are brought up to date on the way.
    void UpdateStatus(const std::string& a_id, const std::string& a_type, int a_x, int a_y, int a_width, int a_height,
                      bool a_visible, bool a_enabled, bool a_selected, CWidget* a_widget);

    /// The text as the last UpdateStatus has left it.
    [[nodiscard]] const std::string& GetFileContents() const { return m_fileContents; }

    /// The base of the file's name, until the first WriteToFile has settled that.
    void SetWidgetName(const std::string& a_name) { m_widgetName = a_name; }

    /// a_text with the five characters that mean something in XML as entities.
    [[nodiscard]] static std::string EncodeStringForOutput(const std::string& a_text);

    /// Writes the text, as it stands, to a file of a_directory. The first call chooses one that doesn't exist: the
    /// widget's name with ".xml", or with "_1.xml" and so on; later calls write to the same file whatever a_directory.
    /// False, without a log line, if a_directory is empty or not all could be written.
    [[nodiscard]] bool WriteToFile(const std::string& a_directory);

private:
    std::string m_fileContents;
    std::string m_widgetName = "unknown";
    std::string m_fileName;
    bool m_hasFileName = false;
};

} // namespace Gfx::Widgets
