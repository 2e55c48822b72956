#pragma once

#include "support/StageTest.h"

#include <map>
#include <string>

namespace Soak
{

/// The top-level widgets that the layouts have now, those that aren't on the screen too. Those that they had before
/// have to go.
class CRoots
{
public:
    /// Takes them from the layouts.
    void Collect();
    /// Holds none any more.
    void Clear() { m_roots.clear(); }

    /// A widget by its path from a root, such as "Navigation:Pages"; empty if there is none.
    [[nodiscard]] GfxTest::WidgetPtr Find(const std::string& a_path) const;

    /// Whether all layouts still have the same ones.
    [[nodiscard]] bool ArePresent() const;

    /// Lets the layouts forget those of former ones. Fails if one is still there afterwards.
    void ForgetFormer() const;

    [[nodiscard]] const std::map<std::string, GfxTest::WidgetPtr>& All() const { return m_roots; }

private:
    std::map<std::string, GfxTest::WidgetPtr> m_roots;
};

/// Reads the files of the layouts again, all of them or those that have changed.
void ReadLayouts(bool a_remake);

} // namespace Soak
