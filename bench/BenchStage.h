#pragma once

#include <Gfx/Gfx.h>

#include <ctime>

namespace Bench
{

using WidgetPtr = Core::SharedPtr<Gfx::Widgets::CWidget>;

/// A widget that draws a rectangle.
class CBlock : public Gfx::Widgets::CWidget
{
public:
    CBlock(const std::string& a_name, int a_x, int a_y, int a_width, int a_height);
    void DrawSelf() const override;
};

/// The processor time that this process has used since the stopwatch was made.
class CStopwatch
{
public:
    CStopwatch() : m_start(std::clock()) {}
    [[nodiscard]] double Seconds() const { return static_cast<double>(std::clock() - m_start) / CLOCKS_PER_SEC; }

private:
    std::clock_t m_start;
};

/// Brings up the stage and shows it; ends the process where there is no display.
void SetUpStage();

Gfx::Managers::CWidgetManager& Widgets();

/// Waits until the frame that is queued has been painted.
void WaitForFrame();

/// Makes the whole stage, or the widget's rectangle only, be painted, and waits until it is.
void PaintStage();
void PaintWidget(Gfx::Widgets::CWidget& a_widget);

/// In bytes, what was handed out in one piece included.
double HeapInUse();

/// Ends the process with a message unless a_condition holds: a benchmark of something that doesn't work says nothing.
void Require(bool a_condition, const char* a_what);

} // namespace Bench
