// The touch panel: a node of the kernel's evdev interface, which delivers records of struct input_event.

#include "Managers/Input/InputManager.h"

#include <dirent.h>
#include <fcntl.h>
#include <glib.h>
#include <linux/input.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string>

namespace Gfx::Managers
{

namespace
{

/// The size of the running system's own record, 16 bytes where a long has 32 bits and 24 where it has 64, as the time
/// stamp differs. The kernel refuses to be read in smaller pieces (EINVAL).
constexpr std::size_t k_recordSize = sizeof(input_event);

constexpr const char* k_inputFolder = "/dev/input/";

/// No type of the kernel's.
constexpr std::uint16_t k_noType = EV_CNT;

struct SPanel
{
    const char* name;
    CInputManager::EDeviceKind kind;
};

constexpr std::array k_panels{
    SPanel{"eGalax Inc. USB TouchController", CInputManager::edkEGalax},
    SPanel{"STMPE610 Touchscreen", CInputManager::edkSTMPE610},
};

struct SCloseFolder
{
    void operator()(DIR* a_folder) const { closedir(a_folder); }
};

/// The kind of panel that an open node belongs to; edkNone for another device, and one that doesn't tell its name.
CInputManager::EDeviceKind KindOf(int a_descriptor)
{
    std::array<char, 256> name;
    name.front() = '\0';
    if (ioctl(a_descriptor, EVIOCGNAME(name.size()), name.data()) < 0)
    {
        std::perror("evdev ioctl");
        return CInputManager::edkNone;
    }
    // A longer name is cut, and has no end.
    name.back() = '\0';
    for (const SPanel& panel : k_panels)
    {
        if (std::strcmp(name.data(), panel.name) == 0)
        {
            return panel.kind;
        }
    }
    return CInputManager::edkNone;
}

void StopWatching(CInputManager* a_input)
{
    while (g_source_remove_by_funcs_user_data(&g_io_watch_funcs, a_input) != FALSE)
    {
    }
}

/// Finds out whether the panel is lost, and takes its watches off the main loop if it is. To poll a descriptor that is
/// dead or closed returns at once, for ever; and its number may come to belong to another file.
gboolean OnDeviceDoubted(gpointer a_input)
{
    auto* const input = static_cast<CInputManager*>(a_input);
    input->Read();
    if (!input->HasPanel())
    {
        StopWatching(input);
    }
    return G_SOURCE_REMOVE;
}

gboolean OnDevice(GIOChannel*, GIOCondition a_condition, gpointer a_input)
{
    auto* const input = static_cast<CInputManager*>(a_input);
    const bool isInput = a_condition == G_IO_IN;
    if (isInput)
    {
        input->Read();
    }
    else
    {
        std::fprintf(stderr, "_STMPE610_Input: bad condition: %d\n", static_cast<int>(a_condition));
    }
    if (!isInput || !input->HasPanel())
    {
        // After the other watches that are due with this one, and before the main loop polls again.
        g_idle_add_full(G_PRIORITY_HIGH, OnDeviceDoubted, a_input, nullptr);
    }
    return isInput ? G_SOURCE_CONTINUE : G_SOURCE_REMOVE;
}

} // namespace

void CInputManager::Probe()
{
    if (HasPanel())
    {
        return;
    }
    // A machine without input devices may lack the folder.
    const std::unique_ptr<DIR, SCloseFolder> folder(opendir(k_inputFolder));
    while (const dirent* const entry = folder ? readdir(folder.get()) : nullptr)
    {
        if (std::strncmp(entry->d_name, "event", 5) != 0)
        {
            continue;
        }
        const int descriptor = open((std::string(k_inputFolder) + entry->d_name).c_str(), O_RDONLY | O_NONBLOCK);
        if (descriptor == -1)
        {
            continue;
        }
        if (const EDeviceKind kind = KindOf(descriptor); kind != edkNone)
        {
            m_deviceFd = descriptor;
            m_deviceKind = kind;
            break;
        }
        close(descriptor);
    }
    if (m_deviceFd < 0)
    {
        std::fputs("unable to find touchscreen device\n", stderr);
    }
    else
    {
        Init_GIO();
    }
}

void CInputManager::Init_GIO()
{
    if (!HasPanel())
    {
        return;
    }
    GIOChannel* const channel = g_io_channel_unix_new(m_deviceFd);
    for (const GIOCondition condition : {G_IO_IN, G_IO_ERR, G_IO_HUP, G_IO_NVAL})
    {
        g_io_add_watch(channel, condition, OnDevice, this);
    }
    // The watches hold it.
    g_io_channel_unref(channel);
}

void CInputManager::Read()
{
    switch (m_deviceKind)
    {
    case edkEGalax: Read_eGalax(); break;
    case edkSTMPE610: Read_STMPE610(); break;
    default: break;
    }
}

void CInputManager::Read_eGalax()
{
    Drain("CInputManager::Idle_eGalax: read",
          [this](const SRecord& a_record)
          {
              const auto& [type, code, value] = a_record;
              if (type == EV_SYN)
              {
                  ReportEvents();
              }
              else if (type == EV_KEY && code == BTN_TOUCH && (value == 0 || value == 1))
              {
                  MouseButton(value == 1);
              }
              // Not ABS_X and ABS_Y, which this panel doesn't send.
              else if (type == EV_ABS && code == ABS_Z)
              {
                  m_rawY = value;
              }
              else if (type == EV_ABS && code == ABS_RX)
              {
                  m_rawX = value;
              }
          });
}

void CInputManager::Read_STMPE610()
{
    // The panel doesn't always say that it is touched; two reports at once while it is up mean that, too.
    bool isSynSeen = false;
    Drain("CInputManager::Idle_STMPE610: read",
          [this, &isSynSeen](const SRecord& a_record)
          {
              const auto& [type, code, value] = a_record;
              if (type == EV_SYN)
              {
                  if (m_touchState == 0)
                  {
                      if (isSynSeen)
                      {
                          MouseButton(true);
                      }
                      isSynSeen = !isSynSeen;
                  }
                  ReportEvents();
              }
              else if (type == EV_KEY && code == BTN_TOUCH)
              {
                  if (value == 0 || value == 1)
                  {
                      MouseButton(value == 1);
                  }
                  isSynSeen = false;
              }
              else if (type == EV_ABS && code == ABS_X)
              {
                  m_rawX = value;
              }
              else if (type == EV_ABS && code == ABS_Y)
              {
                  m_rawY = value;
              }
          });
}

void CInputManager::UseDevice(int a_descriptor, EDeviceKind a_kind)
{
    if (HasPanel())
    {
        StopWatching(this);
        CloseDevice();
    }
    m_deviceFd = a_descriptor;
    m_deviceKind = a_kind;
    Init_GIO();
}

/// Hands on record after record until there is none; once more what it has if the panel fails.
template <typename Decoder>
void CInputManager::Drain(const char* a_name, Decoder a_decode)
{
    input_event record{};
    record.type = k_noType;
    while (m_deviceFd != -1)
    {
        const ssize_t size = read(m_deviceFd, &record, k_recordSize);
        if (size < 0 && errno == EAGAIN)
        {
            return;
        }
        if (size != static_cast<ssize_t>(k_recordSize))
        {
            std::perror(a_name);
            CloseDevice();
        }
        a_decode({record.type, record.code, record.value});
    }
}

void CInputManager::CloseDevice()
{
    close(m_deviceFd);
    m_deviceFd = -1;
    m_deviceKind = edkNone;
}

} // namespace Gfx::Managers
