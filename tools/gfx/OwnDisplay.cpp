#include "OwnDisplay.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdio>
#include <string>

namespace Tool
{

namespace
{

/// The descriptor by which the server tells its number.
constexpr int k_displayFd = 3;

/// The number that the server writes with a line end; empty if it ends before that.
std::string ReadNumber(int a_fd)
{
    std::string number;
    char digit = 0;
    while (read(a_fd, &digit, 1) == 1 && digit != '\n')
    {
        number += digit;
    }
    return digit == '\n' ? number : "";
}

} // namespace

COwnDisplay::COwnDisplay()
{
    std::array<int, 2> ends{-1, -1};
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
    {
        return;
    }
    const std::unique_ptr<GSubprocessLauncher, decltype(&g_object_unref)> launcher(
        g_subprocess_launcher_new(
            static_cast<GSubprocessFlags>(G_SUBPROCESS_FLAGS_STDOUT_SILENCE | G_SUBPROCESS_FLAGS_STDERR_SILENCE)),
        g_object_unref);
    g_subprocess_launcher_take_fd(launcher.get(), ends[1], k_displayFd);
    g_subprocess_launcher_set_child_setup(
        launcher.get(), [](gpointer) { prctl(PR_SET_PDEATHSIG, SIGTERM); }, nullptr, nullptr);
    m_server.reset(g_subprocess_launcher_spawn(launcher.get(), nullptr, "Xvfb", "-displayfd", "3", "-screen", "0",
                                               "4096x4096x24", "-nolisten", "tcp", "-noreset", nullptr));
    // So that the end of the pipe shows if the server ends.
    g_subprocess_launcher_close(launcher.get());
    const std::string number = m_server ? ReadNumber(ends[0]) : "";
    close(ends[0]);
    if (!number.empty())
    {
        g_setenv("DISPLAY", (':' + number).c_str(), TRUE);
        g_setenv("LIBGL_ALWAYS_SOFTWARE", "1", TRUE);
        g_unsetenv("WAYLAND_DISPLAY");
        return;
    }
    m_server.reset();
    if (g_getenv("DISPLAY") == nullptr)
    {
        std::fputs("gfx: Xvfb, which draws the pictures, can't be started (on Debian, the package xvfb)\n", stderr);
    }
}

COwnDisplay::~COwnDisplay()
{
    if (m_server)
    {
        g_subprocess_send_signal(m_server.get(), SIGTERM);
        g_subprocess_wait(m_server.get(), nullptr, nullptr);
    }
}

} // namespace Tool
