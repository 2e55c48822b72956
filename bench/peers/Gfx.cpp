// This library, with its public interface.

#include "Peer.h"

#include <Gfx/Gfx.h>
#include <clutter/clutter.h>

namespace
{

using Core::Patterns::StaticSingleton;
using Gfx::Managers::CGfxManager;
using Gfx::Managers::CLayoutManager;
using Gfx::Managers::CWidgetManager;
using Gfx::Widgets::CButton;
using Gfx::Widgets::CPanel;
using WidgetPtr = Core::SharedPtr<Gfx::Widgets::CWidget>;

CWidgetManager& Widgets()
{
    return StaticSingleton<CWidgetManager>::ref();
}

class CGfxPeer : public Peers::CPeer
{
public:
    void Start(bool a_withScreen) override
    {
        StaticSingleton<Core::Logging::CLogger>::ref().Configure(Core::Logging::ELogEventLevel{4},
                                                                 Core::Logging::ELogEventLevel{4}, false, "");
        CGfxManager& gfx = StaticSingleton<CGfxManager>::ref();
        if (!gfx.Setup(PEER_DATA, "Peer", {0, 0}, Peers::k_width, Peers::k_height, 0, nullptr, Gfx::Colours::Gainsboro))
        {
            std::exit(1);
        }
        // The pointer's coordinates are the window's, not those of a touch panel.
        auto& input = StaticSingleton<Gfx::Managers::CInputManager>::ref();
        input.UseCalibration(Gfx::Managers::CInputManager::k_identity);
        if (a_withScreen)
        {
            StaticSingleton<CLayoutManager>::ref().ParseLayoutFile(PEER_FOLDER "Screen.xml");
            StaticSingleton<CLayoutManager>::ref().ApplyLayout("Screen");
            m_button = static_cast<CButton*>(Widgets().FindWidget("screen:button11", nullptr).Get());
        }
        g_signal_connect(gfx.GetStage(), "after-paint", G_CALLBACK(OnPainted), nullptr);
        clutter_threads_add_repaint_func_full(CLUTTER_REPAINT_FLAGS_POST_PAINT, OnSwapped, nullptr, nullptr);
        // Before the first frame: the turns of the loop come from outside.
        g_idle_add_full(G_PRIORITY_HIGH, OnStarted, nullptr, nullptr);
        gfx.StartMainLoop();
        // Which the loop has taken at its end.
        clutter_threads_leave();
    }

    std::string Renderer() override { return "Clutter, OpenGL"; }
    bool Turn(bool a_wait) override { return g_main_context_iteration(nullptr, a_wait ? TRUE : FALSE) != FALSE; }
    void Repaint() override { clutter_actor_queue_redraw(StaticSingleton<CGfxManager>::ref().GetStage()); }

    void ShowPressed(bool a_isPressed) override
    {
        m_button->MouseEvent(a_isPressed ? Gfx::Events::FirstDown : Gfx::Events::FirstUp, 1, {5, 5}, false);
    }
    void SetText(const std::string& a_text) override { m_button->Text(a_text); }

    std::string ButtonsText(const std::vector<Peers::SButton>& a_buttons, int a_round) override
    {
        std::string text = "<Layouts>\n<Layout id=\"Screen\">\n<Panel id=\"panel\" x=\"0\" y=\"0\" width=\"800\" "
                           "height=\"480\" background=\"False\">\n";
        for (std::size_t i = 0; i < a_buttons.size(); ++i)
        {
            text += Peers::Fill("<Button id=\"button{number}\" x=\"{x}\" y=\"{y}\" width=\"{width}\" "
                                "height=\"{height}\" text=\"{text}\"/>\n",
                                a_buttons[i], static_cast<int>(i));
        }
        return WithNewId(text + "</Panel>\n</Layout>\n</Layouts>\n", a_round);
    }
    std::string ScreenText(int a_round) override
    {
        return WithNewId(Peers::ReadFile(PEER_FOLDER "Screen.xml"), a_round);
    }

    void Load(const std::string& a_path) override
    {
        CLayoutManager& layouts = StaticSingleton<CLayoutManager>::ref();
        layouts.ParseLayoutFile(a_path);
        layouts.ApplyLayout(m_id);
    }

    void Add(const std::vector<Peers::SButton>& a_buttons) override
    {
        m_panel = WidgetPtr(new CPanel("panel", 0, 0, Peers::k_width, Peers::k_height, false, true));
        static_cast<CPanel&>(*m_panel).Background(false);
        for (const Peers::SButton& place : a_buttons)
        {
            auto* const button = new CButton("button", place.x, place.y, place.width, place.height, false);
            m_panel->AddChild(WidgetPtr(button));
            button->Text(place.text);
            if (&place == &a_buttons.front())
            {
                button->SetClickEventHandler(&m_onClick);
            }
        }
        Widgets().AddWidget(m_panel);
    }

    void Clear() override
    {
        if (m_panel)
        {
            Widgets().DestroyWidget(m_panel.Get());
            m_panel = WidgetPtr();
        }
        else
        {
            for (const WidgetPtr& widget : StaticSingleton<CLayoutManager>::ref().RetrieveLayout(m_id))
            {
                Widgets().DestroyWidget(widget.Get());
            }
        }
        Widgets().GarbageCollect();
    }

    bool Touch(bool a_isDown, int a_x, int a_y) override
    {
        StaticSingleton<CGfxManager>::ref().InjectMouseEvent(a_isDown ? Gfx::Events::FirstDown : Gfx::Events::FirstUp,
                                                             a_x, a_y, false);
        return true;
    }

private:
    /// A layout is made only once.
    std::string WithNewId(std::string a_text, int a_round)
    {
        const std::string id = "\"Screen\"";
        m_id = "Screen" + std::to_string(a_round);
        return a_text.replace(a_text.find(id), id.size(), "\"" + m_id + "\"");
    }

    static gboolean OnStarted(gpointer)
    {
        clutter_main_quit();
        return FALSE;
    }
    static void OnPainted(ClutterStage*, gpointer) { s_isPainted = true; }
    static gboolean OnSwapped(gpointer)
    {
        if (s_isPainted)
        {
            s_isPainted = false;
            Peers::CountFrame();
        }
        return TRUE;
    }
    static void OnClick(Gfx::Widgets::CWidget*, int, const Gfx::Common::CPoint&, bool) { Peers::CountClick(); }

    inline static bool s_isPainted = false;
    Core::Functor<void, Gfx::Widgets::CWidget*, int, const Gfx::Common::CPoint&, bool>::Function m_onClick{OnClick};
    CButton* m_button = nullptr;
    WidgetPtr m_panel;
    std::string m_id;
};

} // namespace

int main(int argc, char** argv)
{
    CGfxPeer peer;
    return Peers::Run(peer, argc, argv);
}
