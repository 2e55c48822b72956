#pragma once

#include <Gfx/Gfx.h>

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

/// Brings up the stage and shows it; ends the process where there is no display.
void SetUpStage();

Gfx::Managers::CWidgetManager& Widgets();

/// Makes the whole stage, or the widget's rectangle only, be painted, and waits until it is.
void PaintStage();
void PaintWidget(Gfx::Widgets::CWidget& a_widget);

/// Ends the process with a message unless a_condition holds: a benchmark of something that doesn't work says nothing.
void Require(bool a_condition, const char* a_what);

} // namespace Bench
