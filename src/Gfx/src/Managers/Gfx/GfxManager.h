#pragma once

#include "Core/Api.h"
#include "Core/Functor.h"
#include "Core/StaticSingleton.h"
#include "Gfx/Common/Colour.h"
#include "Gfx/Common/MouseEvent.h"
#include "Gfx/Common/Point.h"

#include <list>
#include <string>
#include <vector>

typedef struct _ClutterActor ClutterActor;

namespace Gfx::Managers
{

/// The application's frame: brings up the scene graph and the other managers, runs the main loop with its timers, and
/// takes pictures of the stage. Everything runs on the thread that calls StartMainLoop.
class GFX_API CGfxManager
{
public:
    using IdleHandler = Core::Functor<void>::Signature;

    /// Brings up the stage and the managers, once, before any widget is made.
    ///
    /// a_basePath is the data directory, with a separator at its end; a_width and a_height are the stage's size in
    /// pixels; a_position is kept and not applied. False if there is no display, or no OpenGL to draw on it with.
    /// Data files that are missing or malformed are logged by their managers, and are no failure.
    [[nodiscard]] bool Setup(const std::string& a_basePath, const std::string& a_title,
                             const Common::CPoint& a_position, int a_width, int a_height, int a_argc, char** a_argv,
                             const CColour& a_background);

    /// Shows the stage and runs the main loop, until something calls clutter_main_quit. Without a stage, that is,
    /// unless Setup has said true, it returns at once.
    void StartMainLoop();

    /// Does nothing: the library stops when the process does.
    void Destroy();

    /// One round of the idle handlers, in the order of their registration, those that a handler adds included; then
    /// deletes those that were removed.
    void Idle();

    /// Registers a handler, made with new, unless it is registered. It must live until it is removed.
    void AddIdleHandler(IdleHandler* a_handler);

    /// Gives a_handler up. If it is registered, it is called to the end of the round that is running, or else of the
    /// next one; then it is deleted, registered or not. A handler may remove itself.
    void RemoveIdleHandler(IdleHandler* a_handler);

    /// Gives an event to the widgets as if a device had sent it; a_x and a_y are in stage coordinates, a_remote marks
    /// it as not coming from the console itself.
    void InjectMouseEvent(Events::EMouseEvent a_event, int a_x, int a_y, bool a_remote);

    /// The pixels of the whole stage, painted anew: four bytes each, in the format that the driver prefers, rows from
    /// the bottom up. The caller owns the block, from new[].
    [[nodiscard]] unsigned char* RawScreenShot(int& a_width, int& a_height);

    /// The stage as a PNG file; empty on failure, and while the stage is being painted. Made for drivers that report
    /// BGRA: on one that reports RGBA, red and blue are exchanged. TrueScreenShot gives the same picture in the same
    /// colours on all drivers.
    [[nodiscard]] std::string ScreenShot();

    /// The stage as a PNG file in its true colours; empty on failure.
    [[nodiscard]] std::string TrueScreenShot();

    /// Reads the data directory again, for those who write it: configuration, themes, textures, the language's
    /// texts, layouts, and models if the application has had them read (C3DManager::Reload). Widgets that are there
    /// take the new themes, textures and texts; what an application's own widgets have read of the configuration stays
    /// with them, while layouts are made anew if it has changed, or if they have (CLayoutManager::Reload). A file with
    /// a fault in it leaves what was read of it before, and a line that says where the fault is; true if there is none.
    bool Reload(std::vector<std::string>& a_errors);

    [[nodiscard]] int DisplayWidth() const { return m_displayWidth; }
    [[nodiscard]] int DisplayHeight() const { return m_displayHeight; }

    /// Null before Setup has it.
    [[nodiscard]] ClutterActor* GetStage() { return m_stage; }

    /// Whether localised texts bear marks for debugging: /Gfx/General/DebugLocaleLabels.
    [[nodiscard]] bool DebugLocaleLabels() const { return m_debugLocaleLabels; }

private:
    std::list<IdleHandler*> m_idleHandlers;
    std::list<IdleHandler*> m_handlersToRemove;
    int m_idleDepth = 0;
    int m_cleanupInterval = 0;
    int m_inputIdleInterval = 0;
    int m_widgetIdleInterval = 0;
    Common::CPoint m_position;
    int m_displayWidth = 0;
    int m_displayHeight = 0;
    std::string m_title;
    ClutterActor* m_stage = nullptr;
    bool m_hasReadFormat = false;
    bool m_debugLocaleLabels = false;
};

} // namespace Gfx::Managers

extern template class GFX_API Core::Patterns::StaticSingleton<Gfx::Managers::CGfxManager>;
