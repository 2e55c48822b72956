#pragma once

#include <gio/gio.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace Tool
{

/// Watches a directory with all that lies below it, and calls back once things have been still for a moment after a
/// change: editors write in several steps.
class CWatch
{
public:
    CWatch(std::string a_directory, std::function<void()> a_changed);
    ~CWatch();
    CWatch(const CWatch&) = delete;
    CWatch& operator=(const CWatch&) = delete;

private:
    using Monitor = std::unique_ptr<GFileMonitor, decltype(&g_object_unref)>;

    /// Directories come and go.
    void WatchDirectories();
    void Watch(const std::string& a_directory);
    static void OnChange(GFileMonitor* a_monitor, GFile* a_file, GFile* a_other, GFileMonitorEvent a_event,
                         gpointer a_self);
    static gboolean OnStill(gpointer a_self);

    std::string m_directory;
    std::function<void()> m_changed;
    std::vector<Monitor> m_monitors;
    guint m_timer = 0;
};

} // namespace Tool
