#pragma once

#include <Gfx/Gfx.h>

#include <functional>
#include <list>
#include <memory>
#include <string>
#include <vector>

namespace Demo
{

/// A page for each kind of control, with all its states, and buttons for the theme and the language. It builds its
/// widgets once and lives as long as they do: to the end of the process.
class CGallery
{
public:
    CGallery();

    [[nodiscard]] std::size_t PageCount() const { return m_pages.size(); }
    [[nodiscard]] const std::string& PageName(std::size_t a_index) const { return m_pages[a_index].name; }
    void ShowPage(std::size_t a_index);

    static void SetTheme(const std::string& a_theme);

    /// Brings up what a page shows by a touch: a message box, a wizard. Null if it has nothing of that kind.
    Gfx::Widgets::CWidget* ShowExtra(std::size_t a_index);

private:
    using CWidget = Gfx::Widgets::CWidget;
    using WidgetPtr = CWidget::WidgetPtr;

    struct SPage
    {
        std::string name;
        Gfx::Widgets::CPanel* panel;
        std::function<CWidget*()> extra;
    };

    void AddNavigation();
    Gfx::Widgets::CPanel& AddPage(const std::string& a_name);
    void AddButtons();
    void AddLabels();
    void AddLists();
    void AddChoices();
    void AddGrid();
    void AddImages();
    void AddProgress();
    void AddGraphs();
    void AddScrolling();
    void AddTexts();
    void AddFields();
    void AddKeyboards();
    void AddWindows();
    void AddWizard();
    void AddModels();
    void AddSwitches();
    void NextLanguage();

    /// Over the middle of the screen; a_take gets the text, if it is taken.
    CWidget* OpenKeyboard(const std::string& a_layout, const std::string& a_mode, const std::string& a_text,
                          std::function<void(const std::string&)> a_take);

    void OnClick(CWidget& a_widget, std::function<void()> a_action);

    template <typename ListT>
    void OnSelection(ListT& a_list, std::function<void()> a_action);

    WidgetPtr m_screen;
    Gfx::Widgets::CListBox* m_navigation = nullptr;
    std::vector<SPage> m_pages;
    std::list<std::unique_ptr<CWidget::ClickHandler>> m_clickHandlers;
    std::list<std::unique_ptr<CWidget::MouseHandler>> m_mouseHandlers;
    std::list<std::unique_ptr<CWidget::NotifyHandler>> m_selectionHandlers;
    std::list<std::unique_ptr<Gfx::Widgets::CScrollBar::ScrollEventHandler>> m_scrollHandlers;
    /// Another point for every series.
    std::function<void()> m_addPoints;
    std::unique_ptr<CWidget::VetoableToggleHandler> m_graphsShown;
    std::unique_ptr<Gfx::Widgets::CMessageBox::OptionHandler> m_answer;
    std::unique_ptr<Gfx::Widgets::CWizard::NavigateHandler> m_navigate;
    std::unique_ptr<Gfx::Widgets::COnScreenKeyboard::ClosedHandler> m_keyboardClosed;
    Core::SharedPtr<Gfx::Widgets::CRadioGroup> m_radioGroup;
};

} // namespace Demo
