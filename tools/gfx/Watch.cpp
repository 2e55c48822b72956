#include "Watch.h"

#include <filesystem>
#include <system_error>
#include <utility>

namespace Tool
{

namespace
{

constexpr guint k_stillMs = 100;

} // namespace

CWatch::CWatch(std::string a_directory, std::function<void()> a_changed)
    : m_directory(std::move(a_directory)), m_changed(std::move(a_changed))
{
    WatchDirectories();
}

CWatch::~CWatch()
{
    if (m_timer != 0)
    {
        g_source_remove(m_timer);
    }
}

void CWatch::WatchDirectories()
{
    m_monitors.clear();
    Watch(m_directory);
    std::error_code error;
    for (std::filesystem::recursive_directory_iterator entry(m_directory, error), end; !error && entry != end;
         entry.increment(error))
    {
        std::error_code unknown;
        if (entry->is_directory(unknown))
        {
            Watch(entry->path());
        }
    }
}

void CWatch::Watch(const std::string& a_directory)
{
    const std::unique_ptr<GFile, decltype(&g_object_unref)> file(g_file_new_for_path(a_directory.c_str()),
                                                                 g_object_unref);
    GFileMonitor* const monitor = g_file_monitor_directory(file.get(), G_FILE_MONITOR_WATCH_MOVES, nullptr, nullptr);
    if (monitor != nullptr)
    {
        g_signal_connect(monitor, "changed", G_CALLBACK(OnChange), this);
        m_monitors.emplace_back(monitor, g_object_unref);
    }
}

void CWatch::OnChange(GFileMonitor*, GFile*, GFile*, GFileMonitorEvent, gpointer a_self)
{
    auto* const self = static_cast<CWatch*>(a_self);
    if (self->m_timer != 0)
    {
        g_source_remove(self->m_timer);
    }
    self->m_timer = g_timeout_add(k_stillMs, OnStill, self);
}

gboolean CWatch::OnStill(gpointer a_self)
{
    auto* const self = static_cast<CWatch*>(a_self);
    self->m_timer = 0;
    self->WatchDirectories();
    self->m_changed();
    return G_SOURCE_REMOVE;
}

} // namespace Tool
