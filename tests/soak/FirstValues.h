#pragma once

#include "Roots.h"

#include "Core/IO/XMLNode.h"
#include "Widgets/Controls/ListBox/ListBox.h"

#include <map>
#include <string>
#include <vector>

namespace Soak
{

/// How every widget of the layouts is in the beginning, to be had again whatever has happened since.
class CFirstValues
{
public:
    /// a_roots must outlive it.
    explicit CFirstValues(const CRoots& a_roots) : m_roots(a_roots) {}

    /// Keeps how the widgets of the layouts in some files are now.
    void Note(const std::vector<std::string>& a_files);

    /// Sets back properties and items of lists, and leaves the widgets.
    void SetBack() const;

private:
    struct SWidget
    {
        std::map<std::string, std::string> properties;
        /// The text as it is to be written, if it is localised.
        std::string localisedText;
        std::vector<Gfx::Widgets::SListBoxItem> items;
        std::string firstItem;
    };

    /// The widgets of an element's children.
    void NoteChildren(const Core::IO::XMLNode& a_element, const std::string& a_path);
    void NoteWidget(const std::string& a_path, const std::string& a_text);
    /// True if there was nothing to set back.
    [[nodiscard]] bool SetWidgetBack(const std::string& a_path, const SWidget& a_first) const;
    void LeaveWidget(const std::string& a_path) const;

    const CRoots& m_roots;
    /// By their paths.
    std::map<std::string, SWidget> m_first;
};

} // namespace Soak
