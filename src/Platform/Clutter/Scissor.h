#pragma once

namespace Platform
{

/// Clips drawing to a rectangle of the window for as long as it lives. Rectangles replace one another, they don't
/// nest: an inner one puts the outer aside, and where the inner one ends, the outer is not taken up again.
/// What else Cogl clips by (the region being redrawn, a text's own box) goes on applying.
///
/// All clipping to window rectangles goes through here; Cogl's cache of the clip state would not survive glScissor.
class CScissor
{
public:
    /// a_x and a_y count from the bottom left of the window, in pixels, as OpenGL has it. A negative width or height
    /// counts as 0.
    CScissor(int a_x, int a_y, int a_width, int a_height);
    ~CScissor();
    CScissor(const CScissor&) = delete;
    CScissor& operator=(const CScissor&) = delete;
};

/// The same within the rectangle that is set, if one is, which goes on applying afterwards. No CScissor may begin or
/// end meanwhile.
class CInnerScissor
{
public:
    /// As for CScissor.
    CInnerScissor(int a_x, int a_y, int a_width, int a_height);
    ~CInnerScissor();
    CInnerScissor(const CInnerScissor&) = delete;
    CInnerScissor& operator=(const CInnerScissor&) = delete;
};

} // namespace Platform
