#pragma once

#include "Managers/Input/InputManager.h"

#include <utility>
#include <vector>

namespace GfxTest
{

/// An input manager of the test's own, which reports pixels of the stage. It lives on, as input managers do.
template <typename T = Gfx::Managers::CInputManager, typename... Args>
T& NewInputManager(Args&&... a_args)
{
    static auto& s_all = *new std::vector<T*>;
    s_all.push_back(new T(std::forward<Args>(a_args)...));
    s_all.back()->UseCalibration(Gfx::Managers::CInputManager::k_identity);
    return *s_all.back();
}

} // namespace GfxTest
