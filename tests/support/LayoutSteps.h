#pragma once

#include "Core/IO/XMLNode.h"
#include "Managers/Layout/LayoutManager.h"
#include "support/StageTest.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace GfxTest
{

/// What somebody does with layouts, step by step, each of which is an element of XML:
///
///   Apply id            makes a layout live
///   Tap x y             presses and releases
///   Type text           keys for the selected widget
///   Show id, Hide id    of a widget, by its full name
///   Set id name value   sets a property
///   SetFlag name value
///   Handler name result handles a notification, and answers with True or False; with "destroys" it first destroys the
///                       widget of that name, or all with "*"
///   Idle                an idle round
class CLayoutSteps
{
public:
    CLayoutSteps() = default;
    /// Removes its handlers, and destroys the widgets of the layouts that it has applied, and message boxes.
    ~CLayoutSteps();
    CLayoutSteps(const CLayoutSteps&) = delete;
    CLayoutSteps& operator=(const CLayoutSteps&) = delete;

    /// False for another step, or if the widget that it is about isn't there.
    [[nodiscard]] bool Do(const Core::IO::XMLNode& a_step);

    /// What the handlers have been told since the last call: "name parameter widget;..."
    [[nodiscard]] std::string TakeNotified();

private:
    void Handle(const std::string& a_name, bool a_result, const std::string& a_destroys);

    std::map<std::string, std::unique_ptr<Gfx::Managers::CLayoutManager::NotificationHandler>> m_handlers;
    std::vector<std::string> m_applied;
    std::string m_notified;
};

} // namespace GfxTest
