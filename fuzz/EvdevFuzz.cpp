// What a touch panel's device node delivers. The first byte chooses the panel, and whether it is lost in the end.

#include "fuzz/support/Target.h"

#include "Managers/Input/InputManager.h"

#include <fcntl.h>
#include <glib.h>
#include <unistd.h>

#include <array>
#include <cstdlib>

namespace
{

class CInput : public Gfx::Managers::CInputManager
{
public:
    using CInputManager::UseDevice;
};

/// It is never destroyed, as input managers aren't.
CInput& Input()
{
    static auto& s_input = *new CInput;
    return s_input;
}

} // namespace

void GfxFuzz::SetUp()
{
    setenv("GFX_SYSTEM_CONFIG", (Data().Path() + "system.conf").c_str(), 1);
    Input().UseCalibration(CInput::k_uncalibrated);
}

void GfxFuzz::Try(std::string_view a_input)
{
    std::array<int, 2> ends{};
    if (a_input.empty() || pipe2(ends.data(), O_NONBLOCK | O_CLOEXEC) != 0)
    {
        return;
    }
    const unsigned int choice = static_cast<unsigned char>(a_input.front());
    Input().UseDevice(ends[0], (choice & 1U) != 0 ? CInput::edkEGalax : CInput::edkSTMPE610);
    Use(write(ends[1], a_input.data() + 1, a_input.size() - 1));
    if ((choice & 2U) != 0)
    {
        close(ends[1]);
    }
    constexpr int most = 8;
    for (int i = 0; i < most && g_main_context_iteration(nullptr, FALSE) != FALSE; ++i)
    {
    }
    const Gfx::Common::CPoint raw = Input().RawCoordinates();
    Use(Input().TransformCoordinates(raw.X(), raw.Y()));
    if ((choice & 2U) == 0)
    {
        close(ends[1]);
    }
    // What is left makes it close the device.
    Input().Read();
    if (Input().HasPanel())
    {
        std::abort();
    }
    // Up, for the next one.
    Input().MouseButton(false);
    Input().MousePosition({0, 0});
}
