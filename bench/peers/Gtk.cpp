// GTK; which of its renderers draws is said in GSK_RENDERER.

#include "Peer.h"

#include <gtk/gtk.h>

namespace
{

const char* const k_style = "* { font: 20px \"DejaVu Sans\"; }\n"
                            "button { min-width: 0; min-height: 0; padding: 0; }\n"
                            "window { background: gainsboro; }\n";

/// What lies below all else in the window. It draws the window's ground in one of two colours that no eye tells apart:
/// where nothing has changed the renderer wouldn't draw again.
struct SGround
{
    GtkFixed parent;
    bool isOdd;
};

struct SGroundClass
{
    GtkFixedClass parent;
};

bool s_isDrawn = false;

G_DEFINE_TYPE(SGround, peer_ground, GTK_TYPE_FIXED)

void Snapshot(GtkWidget* a_widget, GtkSnapshot* a_snapshot)
{
    s_isDrawn = true;
    const float shade = reinterpret_cast<SGround*>(a_widget)->isOdd ? 0.86F : 0.865F;
    const GdkRGBA colour{shade, shade, shade, 1};
    graphene_rect_t box;
    graphene_rect_init(&box, 0, 0, Peers::k_width, Peers::k_height);
    gtk_snapshot_append_color(a_snapshot, &colour, &box);
    GTK_WIDGET_CLASS(peer_ground_parent_class)->snapshot(a_widget, a_snapshot);
}

void peer_ground_init(SGround*) {}

void peer_ground_class_init(SGroundClass* a_class)
{
    GTK_WIDGET_CLASS(a_class)->snapshot = Snapshot;
}

class CGtkPeer : public Peers::CPeer
{
public:
    void Start(bool a_withScreen) override
    {
        gtk_init();
        // A console's buttons don't fade.
        g_object_set(gtk_settings_get_default(), "gtk-enable-animations", FALSE, nullptr);
        GtkCssProvider* const provider = gtk_css_provider_new();
        gtk_css_provider_load_from_data(provider, k_style, -1);
        gtk_style_context_add_provider_for_display(gdk_display_get_default(), GTK_STYLE_PROVIDER(provider),
                                                   GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
        g_type_ensure(peer_ground_get_type());
        m_window = GTK_WINDOW(gtk_window_new());
        gtk_window_set_decorated(m_window, FALSE);
        gtk_window_set_default_size(m_window, Peers::k_width, Peers::k_height);
        if (a_withScreen)
        {
            Load(PEER_FOLDER "Screen.gtk.ui");
        }
        else
        {
            Show(GTK_WIDGET(g_object_new(peer_ground_get_type(), nullptr)));
        }
        gtk_widget_realize(GTK_WIDGET(m_window));
        g_signal_connect(gtk_widget_get_frame_clock(GTK_WIDGET(m_window)), "after-paint", G_CALLBACK(OnPainted),
                         nullptr);
        gtk_window_present(m_window);
    }

    std::string Renderer() override { return G_OBJECT_TYPE_NAME(gtk_native_get_renderer(GTK_NATIVE(m_window))); }
    bool Turn(bool a_wait) override { return g_main_context_iteration(nullptr, a_wait ? TRUE : FALSE) != FALSE; }
    void Repaint() override
    {
        m_ground->isOdd = !m_ground->isOdd;
        gtk_widget_queue_draw(GTK_WIDGET(m_ground));
    }
    void ShowPressed(bool a_isPressed) override
    {
        if (a_isPressed)
        {
            gtk_widget_set_state_flags(m_button, GTK_STATE_FLAG_ACTIVE, FALSE);
        }
        else
        {
            gtk_widget_unset_state_flags(m_button, GTK_STATE_FLAG_ACTIVE);
        }
    }
    void SetText(const std::string& a_text) override { gtk_button_set_label(GTK_BUTTON(m_button), a_text.c_str()); }

    std::string ButtonsText(const std::vector<Peers::SButton>& a_buttons, int) override
    {
        std::string text = "<interface>\n<object class=\"SGround\" id=\"screen\">\n";
        for (std::size_t i = 0; i < a_buttons.size(); ++i)
        {
            text += Peers::Fill("<child>\n<object class=\"GtkButton\" id=\"button{number}\">\n"
                                "<property name=\"label\">{text}</property>\n"
                                "<property name=\"width-request\">{width}</property>\n"
                                "<property name=\"height-request\">{height}</property>\n"
                                "<layout><property name=\"transform\">translate({x}, {y})</property></layout>\n"
                                "</object>\n</child>\n",
                                a_buttons[i], static_cast<int>(i));
        }
        return text + "</object>\n</interface>\n";
    }
    std::string ScreenText(int) override { return Peers::ReadFile(PEER_FOLDER "Screen.gtk.ui"); }

    void Load(const std::string& a_path) override
    {
        GtkBuilder* const builder = gtk_builder_new_from_file(a_path.c_str());
        m_button = GTK_WIDGET(gtk_builder_get_object(builder, "button11"));
        Show(GTK_WIDGET(gtk_builder_get_object(builder, "screen")));
        g_object_unref(builder);
    }

    void Add(const std::vector<Peers::SButton>& a_buttons) override
    {
        auto* const ground = GTK_FIXED(g_object_new(peer_ground_get_type(), nullptr));
        for (const Peers::SButton& place : a_buttons)
        {
            GtkWidget* const button = gtk_button_new_with_label(place.text.c_str());
            gtk_widget_set_size_request(button, place.width, place.height);
            gtk_fixed_put(ground, button, place.x, place.y);
            if (&place == &a_buttons.front())
            {
                g_signal_connect(button, "clicked", G_CALLBACK(OnClick), nullptr);
            }
        }
        Show(GTK_WIDGET(ground));
    }

    void Clear() override { Show(GTK_WIDGET(g_object_new(peer_ground_get_type(), nullptr))); }

    // It has no way to make an event.
    bool Touch(bool, int, int) override { return false; }

private:
    void Show(GtkWidget* a_ground)
    {
        m_ground = reinterpret_cast<SGround*>(a_ground);
        gtk_window_set_child(m_window, a_ground);
    }

    static void OnPainted(GdkFrameClock*, gpointer)
    {
        if (s_isDrawn)
        {
            s_isDrawn = false;
            Peers::CountFrame();
        }
    }
    static void OnClick(GtkButton*, gpointer) { Peers::CountClick(); }

    GtkWindow* m_window = nullptr;
    SGround* m_ground = nullptr;
    GtkWidget* m_button = nullptr;
};

} // namespace

int main(int argc, char** argv)
{
    CGtkPeer peer;
    return Peers::Run(peer, argc, argv);
}
