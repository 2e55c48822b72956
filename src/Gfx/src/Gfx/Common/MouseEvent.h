#pragma once

namespace Gfx::Events
{

/// What happened to the pointer, from the point of view of the widget that is told.
enum EMouseEvent : int
{
    NoEvent = 0,      ///< Never sent.
    Leave = 1,        ///< The pointer has left the widget; repeated while a held widget's pointer is over no widget.
    Enter = 2,        ///< The pointer came back onto the widget on which a press began.
    Move = 3,         ///< The pointer moved.
    FirstDown = 4,    ///< The first button went down; a finger touched.
    FirstUp = 5,      ///< The first button went up.
    FirstClick = 6,   ///< The first button went down and up on the same widget.
    SecondDown = 7,   ///< The second button went down; passed through.
    SecondUp = 8,     ///< The second button went up; passed through.
    SecondClick = 9,  ///< Not made by the dispatch.
    ThirdDown = 10,   ///< The third button went down.
    ThirdUp = 11,     ///< The third button went up.
    ThirdClick = 12,  ///< The third button went down and up on the same widget.
    NonClientHit = 13 ///< A click fell outside a widget that had registered to hear of it.
};

/// The buttons held, as the mask that travels beside an event.
enum EMouseButton
{
    embFirst = 1,
    embSecond = 2,
    embThird = 4
};

} // namespace Gfx::Events
