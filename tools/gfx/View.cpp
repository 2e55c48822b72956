#include "Commands.h"
#include "Interface.h"
#include "Watch.h"

#include <Gfx/Gfx.h>
#include <clutter/clutter.h>

#include <algorithm>
#include <cstdio>
#include <set>

namespace Tool
{

using Core::Patterns::StaticSingleton;
using Gfx::Managers::CGfxManager;
using Gfx::Managers::CLayoutManager;

namespace
{

/// Applies layouts as soon as they exist, each once.
class CShownLayouts
{
public:
    explicit CShownLayouts(std::vector<std::string> a_wanted) : m_wanted(std::move(a_wanted)) {}

    void Update()
    {
        CLayoutManager& layouts = StaticSingleton<CLayoutManager>::ref();
        const std::vector<std::string> known = layouts.LayoutIds();
        for (const std::string& layout : m_wanted)
        {
            if (std::find(known.begin(), known.end(), layout) != known.end() && m_shown.insert(layout).second)
            {
                layouts.ApplyLayout(layout);
            }
        }
    }

private:
    std::vector<std::string> m_wanted;
    std::set<std::string> m_shown;
};

gboolean OnDelete(ClutterStage*, ClutterEvent*, gpointer)
{
    clutter_main_quit();
    return TRUE;
}

gboolean OnFrame(gpointer)
{
    clutter_main_quit();
    return FALSE;
}

} // namespace

int View(const SOptions& a_options)
{
    if (!StartInterface(a_options))
    {
        return eeFailure;
    }
    CGfxManager& gfx = StaticSingleton<CGfxManager>::ref();
    g_signal_connect(gfx.GetStage(), "delete-event", G_CALLBACK(OnDelete), nullptr);
    CShownLayouts shown(WantedLayouts(a_options));
    for (const std::string& layout : WantedLayouts(a_options))
    {
        // Reported, no more: it may still be written.
        static_cast<void>(HasLayout(layout, a_options.directory));
    }
    Print(Gfx::Layout::CheckLayouts(a_options.directory));
    shown.Update();
    const CWatch watch(a_options.directory,
                       [&]
                       {
                           std::vector<std::string> errors;
                           if (gfx.Reload(errors))
                           {
                               shown.Update();
                               Print(Gfx::Layout::CheckLayouts(a_options.directory));
                               std::fputs("gfx: read again\n", stderr);
                           }
                           else
                           {
                               Print(errors);
                               std::fputs("gfx: what was there before stays\n", stderr);
                           }
                       });
    if (a_options.once)
    {
        clutter_threads_add_repaint_func_full(CLUTTER_REPAINT_FLAGS_POST_PAINT, OnFrame, nullptr, nullptr);
    }
    std::fprintf(stderr, "gfx: watching %s\n", a_options.directory.c_str());
    gfx.StartMainLoop();
    return eeSuccess;
}

} // namespace Tool
