#include "Core/Localisation/Manager.h"
#include "Core/Logging/Logger.h"
#include "Core/Time.h"
#include "Managers/3D/3DManager.h"
#include "Managers/Config/ConfigManager.h"
#include "Managers/Gfx/GfxManager.h"
#include "Managers/Input/InputManager.h"
#include "Managers/Layout/LayoutManager.h"
#include "Managers/Textures/PageAhead.h"
#include "Managers/Textures/TextureManager.h"
#include "Managers/Themes/ThemeManager.h"
#include "Managers/Widgets/WidgetManager.h"
#include "Platform/Clutter/Frame.h"
#include "Platform/Clutter/Start.h"
#include "Platform/GL/GL.h"

#include <algorithm>
#include <cstring>

namespace Gfx::Managers
{

using Core::Patterns::StaticSingleton;

namespace
{

constexpr int k_idlePauseMs = 20;

/// When the next idle round may run.
Core::Time s_widgetIdleDeadline(0);

void Report(const char* a_message)
{
    StaticSingleton<Core::Logging::CLogger>::ref().Log(Core::Logging::elMessage, "Gfx", a_message, "");
}

bool DriverHasReadFormat()
{
    // Null where the context is a core profile.
    const auto* extensions = reinterpret_cast<const char*>(glGetString(GL_EXTENSIONS));
    return extensions != nullptr && std::strstr(extensions, "GL_OES_read_format") != nullptr;
}

gboolean OnCleanupTimer(gpointer)
{
    StaticSingleton<CWidgetManager>::ref().GarbageCollect();
    return TRUE;
}

gboolean OnInputTimer(gpointer)
{
    StaticSingleton<CInputManager>::ref().Idle();
    return TRUE;
}

gboolean OnWidgetTimer(gpointer)
{
    Core::Time now;
    now.Now();
    if (s_widgetIdleDeadline.Expired(now))
    {
        StaticSingleton<CGfxManager>::ref().Idle();
        StaticSingleton<CWidgetManager>::ref().Idle();
        s_widgetIdleDeadline = Core::Time::TimerMs(k_idlePauseMs);
    }
    return TRUE;
}

void AddTimer(int a_intervalMs, GSourceFunc a_callback)
{
    // Without a pause the timer would keep the stage from ever being painted.
    clutter_threads_add_timeout(static_cast<guint>(std::max(a_intervalMs, 1)), a_callback, nullptr);
}

} // namespace

bool CGfxManager::Setup(const std::string& a_basePath, const std::string& a_title, const Common::CPoint& a_position,
                        int a_width, int a_height, int a_argc, char** a_argv, const CColour& a_background)
{
    if (Core::Localisation::CManager::Instance() == nullptr)
    {
        // Lives to the end of the process, as the managers do, and longer than any widget.
        Core::Localisation::CManager::Instance(new Core::Localisation::CManager(a_basePath));
    }
    m_title = a_title;
    m_position = a_position;
    m_displayWidth = a_width;
    m_displayHeight = a_height;
    m_stage = nullptr;

    Report("Initialising clutter");
    Platform::PrepareClutter();
    detail::PageAhead().Begin(a_basePath);
    GError* error = nullptr;
    if (!Platform::StartClutter(&a_argc, &a_argv, &error))
    {
        detail::PageAhead().Forget();
        g_log(nullptr, G_LOG_LEVEL_WARNING, "Unable to initialise Clutter:\n%s",
              error != nullptr ? error->message : "unknown");
        g_clear_error(&error);
        return false;
    }
    m_stage = clutter_stage_get_default();
    auto* const stage = CLUTTER_STAGE(m_stage);
    clutter_actor_set_size(m_stage, static_cast<float>(a_width), static_cast<float>(a_height));
    Platform::SizeWindow(stage);
    clutter_stage_set_title(stage, a_title.c_str());
    const ClutterColor background = a_background.AsClutterColour();
    clutter_stage_set_color(stage, &background);
    // The widgets find their own targets; picking for the scene graph's actors would repaint the stage at each motion.
    clutter_stage_set_motion_events_enabled(stage, FALSE);
    m_hasReadFormat = DriverHasReadFormat();

    Report("Initialising configuration");
    CConfigManager& config = StaticSingleton<CConfigManager>::ref();
    config.Initialise(a_basePath);
    m_cleanupInterval = config.Get<int>("/Gfx/General/CleanupInterval", 5000);
    m_inputIdleInterval = config.Get<int>("/Gfx/General/InputIdleInterval", 50);
    m_widgetIdleInterval = config.Get<int>("/Gfx/General/WidgetIdleInterval", 100);
    m_debugLocaleLabels = config.Get<std::string>("/Gfx/General/DebugLocaleLabels", "No") == "Yes";

    Report("Initialising theme manager");
    StaticSingleton<CThemeManager>::ref().Initialise(a_basePath);
    Report("Initialising texture manager");
    StaticSingleton<CTextureManager>::ref().Initialise(a_basePath);

    Report("Initialising layout manager");
    StaticSingleton<CLayoutManager>::ref().Initialise(a_basePath);

    Report("Initialising complete");
    return true;
}

bool CGfxManager::Reload(std::vector<std::string>& a_errors)
{
    a_errors.clear();
    const auto reload = [&a_errors](auto& a_manager)
    {
        std::string error;
        if (!a_manager.Reload(error))
        {
            a_errors.push_back(error);
        }
    };
    CConfigManager& config = StaticSingleton<CConfigManager>::ref();
    const auto generation = config.Generation();
    reload(config);
    reload(StaticSingleton<CThemeManager>::ref());
    reload(StaticSingleton<CTextureManager>::ref());
    reload(StaticSingleton<C3DManager>::ref());
    if (m_stage != nullptr)
    {
        // Scenes don't know that their textures have changed.
        clutter_actor_queue_redraw(m_stage);
    }
    StaticSingleton<CWidgetManager>::ref().UpdateStyle();
    Core::Localisation::CManager& localisation = *Core::Localisation::CManager::Instance();
    if (!localisation.SetLanguage(localisation.Language()))
    {
        a_errors.push_back("the texts of language " + localisation.Language());
    }
    std::vector<std::string> layoutErrors;
    // Widgets read the configuration as they are made.
    if (!StaticSingleton<CLayoutManager>::ref().Reload(layoutErrors, config.Generation() != generation))
    {
        a_errors.insert(a_errors.end(), layoutErrors.begin(), layoutErrors.end());
    }
    return a_errors.empty();
}

void CGfxManager::StartMainLoop()
{
    if (m_stage == nullptr)
    {
        return;
    }
    // What is on the screen by now has taken it.
    detail::PageAhead().Forget();
    clutter_actor_show(m_stage);
    StaticSingleton<CInputManager>::ref().ConnectClutter();
    AddTimer(m_cleanupInterval, OnCleanupTimer);
    AddTimer(m_inputIdleInterval, OnInputTimer);
    AddTimer(m_widgetIdleInterval, OnWidgetTimer);
    clutter_main();
}

void CGfxManager::InjectMouseEvent(Events::EMouseEvent a_event, int a_x, int a_y, bool a_remote)
{
    int buttons = 0;
    if (a_event >= Events::FirstDown && a_event <= Events::FirstClick)
    {
        buttons = Events::embFirst;
    }
    else if (a_event >= Events::SecondDown && a_event <= Events::SecondClick)
    {
        buttons = Events::embSecond;
    }
    else if (a_event >= Events::ThirdDown && a_event <= Events::ThirdClick)
    {
        buttons = Events::embThird;
    }
    StaticSingleton<CWidgetManager>::ref().MouseEvent(a_event, buttons, Common::CPoint(a_x, a_y), a_remote);
}

} // namespace Gfx::Managers
