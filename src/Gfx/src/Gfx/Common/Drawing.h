#pragma once

#include "Core/Api.h"
#include "Gfx/Common/AABB.h"
#include "Gfx/Common/Colour.h"
#include "Gfx/Common/TexturedQuad.h"

#include <vector>

namespace Gfx::Utilities
{

/// Draws all quads of one texture in a single call, an empty list included. To be called while a widget paints: the
/// positions are relative to its corner. The texture is a Cogl handle and stays the caller's.
GFX_API void DrawTexturedQuads(const std::vector<STexturedQuad>& a_quads, void* a_texture);

/// Makes a_colour the current colour, which modulates what is drawn after it. To be called while a widget paints.
GFX_API void SetColour(const CColour& a_colour);

/// a_colour times the current colour: what a widget draws in colours of its own is so as transparent as the widget is.
[[nodiscard]] GFX_API CColour Modulated(const CColour& a_colour);

/// A quad that shows a whole texture in a rectangle.
[[nodiscard]] GFX_API STexturedQuad WholeTexture(const Common::CAABB& a_rectangle);

/// Fills a rectangle, given in the widget's own coordinates, with Modulated(a_colour). To be called while a widget
/// paints.
GFX_API void FillRectangle(const Common::CAABB& a_rectangle, const CColour& a_colour);

} // namespace Gfx::Utilities
