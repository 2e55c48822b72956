#pragma once

#include "Core/Api.h"
#include "Gfx/Common/Margins.h"
#include "Gfx/Common/TexturedQuad.h"

#include <vector>

namespace Gfx::Managers
{

/// A named rectangle of a texture page that can be stretched to any size.
class GFX_API CTexturedElement
{
public:
    /// The rectangle, and the size of the page that it lies in, in pixels.
    CTexturedElement(int a_left, int a_top, int a_width, int a_height, int a_pageWidth, int a_pageHeight);
    virtual ~CTexturedElement() = default;
    CTexturedElement(const CTexturedElement&) = delete;
    CTexturedElement& operator=(const CTexturedElement&) = delete;

    /// Puts the quads that cover a rectangle, in a widget's coordinates, in place of what a_quads held.
    virtual void Generate(int a_x, int a_y, int a_width, int a_height, std::vector<STexturedQuad>& a_quads) const = 0;

    /// The width of one border, in pixels.
    [[nodiscard]] virtual int GetElementMargin(Margins::EMargin a_margin) const = 0;

protected:
    float m_left;
    float m_top;
    float m_width;
    float m_height;
    float m_pageWidth;
    float m_pageHeight;
};

/// An element with four borders: its corners keep their size, its edges are stretched in one direction and its centre
/// in both. Without borders it is one piece.
class GFX_API CSimpleElement : public CTexturedElement
{
public:
    /// a_border is the width of all four borders.
    CSimpleElement(int a_left, int a_top, int a_width, int a_height, int a_pageWidth, int a_pageHeight, int a_border);

    /// One quad without borders, otherwise nine, row by row from the top left. Nothing is clamped: in a target smaller
    /// than two opposite borders the centre is turned over and the corners overlap.
    void Generate(int a_x, int a_y, int a_width, int a_height, std::vector<STexturedQuad>& a_quads) const override;

    /// A value outside the enumeration gives the top border.
    [[nodiscard]] int GetElementMargin(Margins::EMargin a_margin) const override;

    /// In pixels, for quads that are made from now on.
    virtual void SetBorders(int a_top, int a_bottom, int a_left, int a_right);

private:
    int m_topBorder;
    int m_bottomBorder;
    int m_leftBorder;
    int m_rightBorder;
};

} // namespace Gfx::Managers
