// Streams of touches and keys on the demo: each event is a byte that chooses its kind, and its arguments.

#include "fuzz/support/Stage.h"
#include "fuzz/support/Target.h"

#include "Managers/3D/3DManager.h"
#include "Managers/Input/InputManager.h"
#include "Managers/Layout/LayoutManager.h"
#include "demo/Greenhouse.h"

#include <cstdlib>
#include <memory>

namespace
{

using Core::Patterns::StaticSingleton;
using GfxFuzz::CStage;

/// Bytes one after the other; 0 behind the end.
class CBytes
{
public:
    explicit CBytes(std::string_view a_bytes) : m_bytes(a_bytes) {}
    [[nodiscard]] bool IsEmpty() const { return m_bytes.empty(); }
    [[nodiscard]] int Next()
    {
        if (m_bytes.empty())
        {
            return 0;
        }
        const auto byte = static_cast<unsigned char>(m_bytes.front());
        m_bytes.remove_prefix(1);
        return byte;
    }

private:
    std::string_view m_bytes;
};

struct SPlace
{
    explicit SPlace(CBytes& a_bytes) : x(a_bytes.Next() * 800 / 256), y(a_bytes.Next() * 480 / 256) {}

    int x;
    int y;
};

/// Begins with a greenhouse as it is at first, and leaves nothing of it.
class CDemo
{
public:
    CDemo()
    {
        StaticSingleton<Gfx::Managers::CThemeManager>::ref().SetTheme("Day");
        GfxFuzz::Use(Core::Localisation::CManager::Instance()->SetLanguage("en"));
        StaticSingleton<Gfx::Managers::CInputManager>::ref().UseCalibration(Gfx::Managers::CInputManager::k_identity);
        m_greenhouse = std::make_unique<Demo::CGreenhouse>();
    }
    ~CDemo()
    {
        CStage::Clear();
        m_greenhouse.reset();
        std::vector<std::string> errors;
        GfxFuzz::Use(StaticSingleton<Gfx::Managers::CLayoutManager>::ref().Reload(errors, true));
        CStage::Iterate();
    }
    CDemo(const CDemo&) = delete;
    CDemo& operator=(const CDemo&) = delete;

    void Do(CBytes& a_bytes)
    {
        switch (a_bytes.Next() % 10)
        {
        case 0: Point(a_bytes, CStage::Press); break;
        case 1: Point(a_bytes, CStage::MoveTo); break;
        case 2: Point(a_bytes, CStage::Release); break;
        case 3: Drag(a_bytes); break;
        case 4: CStage::Widgets().KeyboardEvent(static_cast<unsigned int>(a_bytes.Next())); break;
        case 5: CStage::Widgets().KeyboardEvent(0xff00U + static_cast<unsigned int>(a_bytes.Next())); break;
        case 6:
            CStage::Advance(a_bytes.Next() * 10);
            CStage::Widgets().Idle();
            break;
        case 7: m_greenhouse->Step(); break;
        case 8: Paint(); break;
        default: Point(a_bytes, CStage::Click); break;
        }
    }

private:
    static void Point(CBytes& a_bytes, void (*a_do)(int a_x, int a_y))
    {
        const SPlace place(a_bytes);
        a_do(place.x, place.y);
    }
    static void Drag(CBytes& a_bytes)
    {
        const SPlace from(a_bytes);
        const SPlace to(a_bytes);
        CStage::Press(from.x, from.y);
        CStage::MoveTo(to.x, to.y);
        CStage::Release(to.x, to.y);
    }
    void Paint()
    {
        CStage::Widgets().GarbageCollect();
        CStage::Iterate();
        if (++m_paints <= 3)
        {
            CStage::Paint();
        }
    }

    std::unique_ptr<Demo::CGreenhouse> m_greenhouse;
    int m_paints = 0;
};

} // namespace

void GfxFuzz::SetUp()
{
    setenv("GFX_SYSTEM_CONFIG", (Data().Path() + "system.conf").c_str(), 1);
    CStage::Make(GFX_FUZZ_DEMO);
    StaticSingleton<Gfx::Managers::C3DManager>::ref().Initialise(GFX_FUZZ_DEMO);
}

void GfxFuzz::Try(std::string_view a_input)
{
    CDemo demo;
    for (CBytes bytes(a_input); !bytes.IsEmpty();)
    {
        demo.Do(bytes);
    }
}
