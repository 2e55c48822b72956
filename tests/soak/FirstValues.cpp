#include "FirstValues.h"

#include "Report.h"

#include "Core/IO/XMLDocument.h"
#include "Widgets/Controls/ListGrid/ListGrid.h"
#include "Widgets/Controls/NumericEditBox/NumericEditBox.h"

#include <algorithm>

namespace Soak
{

using Core::IO::XMLNode;
using Gfx::Common::CPoint;
using GfxTest::WidgetPtr;

namespace
{

/// How often what is set back may set something else.
constexpr int k_mostPasses = 5;

} // namespace

void CFirstValues::Note(const std::vector<std::string>& a_files)
{
    for (const std::string& file : a_files)
    {
        Core::IO::XMLDocument document;
        const XMLNode* const layouts = document.Parse(file) ? document.Section("Layouts") : nullptr;
        if (layouts == nullptr)
        {
            Fail("no layouts in " + file);
        }
        for (const XMLNode& layout : layouts->Children())
        {
            NoteChildren(layout, "");
        }
    }
}

void CFirstValues::SetBack() const
{
    bool isAsFirst = false;
    for (int pass = 0; !isAsFirst; ++pass)
    {
        if (pass > k_mostPasses)
        {
            Fail("properties can't be set back");
        }
        isAsFirst = true;
        for (const auto& [path, first] : m_first)
        {
            isAsFirst = SetWidgetBack(path, first) && isAsFirst;
        }
    }
    // Whoever destroys a widget ends what pointer and keyboard are at without a word to anybody, and a button or a
    // field keeps its look.
    for (const auto& [path, first] : m_first)
    {
        LeaveWidget(path);
    }
}

void CFirstValues::NoteChildren(const XMLNode& a_element, const std::string& a_path)
{
    for (const XMLNode& child : a_element.Children())
    {
        const std::string id = child.Attribute("id", "");
        if (child.Name() == "RadioGroup")
        {
            NoteChildren(child, a_path);
        }
        else if (!id.empty())
        {
            const std::string path = a_path.empty() ? id : a_path + ':' + id;
            NoteWidget(path, child.Attribute("text", ""));
            NoteChildren(child, path);
        }
    }
}

void CFirstValues::NoteWidget(const std::string& a_path, const std::string& a_text)
{
    const WidgetPtr widget = m_roots.Find(a_path);
    if (!widget)
    {
        return;
    }
    SWidget& first = m_first[a_path];
    for (const auto& property : widget->Properties())
    {
        const std::string name(property.name);
        if (property.isReadable && property.isWritable)
        {
            first.properties[name] = widget->GetProperty(name, "");
        }
        // Reading a localised text gives its key alone.
        if (name == "Text" && a_text == "Localised:" + first.properties[name])
        {
            first.localisedText = a_text;
        }
    }
    if (auto* const box = dynamic_cast<Gfx::Widgets::CListBox*>(widget.Get()))
    {
        first.items = box->Items();
        first.firstItem = box->Items().empty() ? "" : box->Items().front().id;
    }
    if (auto* const grid = dynamic_cast<Gfx::Widgets::CListGrid*>(widget.Get()))
    {
        first.firstItem = grid->Items().empty() ? "" : grid->Items().front().id;
    }
}

bool CFirstValues::SetWidgetBack(const std::string& a_path, const SWidget& a_first) const
{
    const WidgetPtr widget = m_roots.Find(a_path);
    if (!widget)
    {
        Fail(a_path + " has gone");
    }
    bool isAsFirst = true;
    if (auto* const box = dynamic_cast<Gfx::Widgets::CListBox*>(widget.Get()))
    {
        const auto& items = box->Items();
        if (!std::equal(items.begin(), items.end(), a_first.items.begin(), a_first.items.end(),
                        [](const auto& a_item, const auto& a_other)
                        { return a_item.id == a_other.id && a_item.text == a_other.text; }))
        {
            isAsFirst = false;
            box->ClearItems();
            for (const auto& item : a_first.items)
            {
                box->AddItem(item, true);
            }
        }
        box->ScrollTo(a_first.firstItem);
    }
    if (auto* const grid = dynamic_cast<Gfx::Widgets::CListGrid*>(widget.Get()))
    {
        grid->ScrollTo(a_first.firstItem);
    }
    // What a touch of the item does to others is done, too, which writing the property doesn't do.
    const auto selected = a_first.properties.find("SelectedItem");
    const auto select = [&](auto* a_list)
    {
        if (a_list != nullptr && a_list->SelectedItem() != selected->second)
        {
            isAsFirst = false;
            a_list->ToggleItem(selected->second, true);
        }
    };
    select(dynamic_cast<Gfx::Widgets::CListBox*>(widget.Get()));
    select(dynamic_cast<Gfx::Widgets::CListGrid*>(widget.Get()));
    if (auto* const fields = dynamic_cast<Gfx::Widgets::CNumericEditBox*>(widget.Get()))
    {
        // The one that was touched last keeps its look.
        fields->UnHighlightActive();
    }
    for (const auto& [name, value] : a_first.properties)
    {
        if (widget->GetProperty(name, "") != value)
        {
            isAsFirst = false;
            widget->SetProperty(name, name == "Text" && !a_first.localisedText.empty() ? a_first.localisedText : value);
        }
    }
    return isAsFirst;
}

void CFirstValues::LeaveWidget(const std::string& a_path) const
{
    const WidgetPtr widget = m_roots.Find(a_path);
    const auto leave = [](const WidgetPtr& a_widget)
    {
        if (a_widget)
        {
            for (const auto event : {Gfx::Events::FirstUp, Gfx::Events::Leave})
            {
                a_widget->MouseEvent(event, 0, {-1, -1}, false);
            }
        }
        if (a_widget && a_widget->Selected())
        {
            a_widget->Deselect();
        }
    };
    const auto leaveRows = [&](auto* a_list)
    {
        for (std::size_t i = 0; a_list != nullptr && i < a_list->Items().size(); ++i)
        {
            leave(m_roots.Find(a_path + ':' + a_list->Items()[i].id));
        }
    };
    leave(widget);
    leaveRows(dynamic_cast<Gfx::Widgets::CListBox*>(widget.Get()));
    leaveRows(dynamic_cast<Gfx::Widgets::CListGrid*>(widget.Get()));
    if (dynamic_cast<Gfx::Widgets::CNumericEditBox*>(widget.Get()) != nullptr)
    {
        // Its fields lie side by side.
        const CPoint corner = widget->AbsoluteTopLeft();
        for (int x = 0; x < widget->Width(); x += 10)
        {
            leave(widget->FindIntersectingChild({corner.X() + x, corner.Y() + widget->Height() / 2, 1, 1}));
        }
    }
}

} // namespace Soak
