// Qt's widgets: the screen from what uic makes of Screen.ui, as a program would have it; compiled a second time with
// PEER_LOADER, which reads files while it runs, and needs one library more.

#include "Peer.h"
#include "ui_Screen.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QMouseEvent>
#include <QPointer>
#include <QPushButton>
#include <QStyle>
#include <QWidget>
#include <QWindow>
#include <memory>

#ifdef PEER_LOADER
#    include <QFile>
#    include <QUiLoader>
#endif

namespace
{

class CWindow : public QWidget
{
protected:
    /// What is painted is flushed before the next event is handled.
    void paintEvent(QPaintEvent*) override { QMetaObject::invokeMethod(this, Peers::CountFrame, Qt::QueuedConnection); }
};

class CQtWidgets : public Peers::CPeer
{
public:
    CQtWidgets(int& a_argc, char** a_argv) : m_application(a_argc, a_argv) {}

    void Start(bool a_withScreen) override
    {
        QFont font("DejaVu Sans");
        font.setPixelSize(20);
        QApplication::setFont(font);
        m_window = std::make_unique<CWindow>();
        m_window->setGeometry(0, 0, Peers::k_width, Peers::k_height);
        if (a_withScreen)
        {
            m_screen.setupUi(m_window.get());
        }
        m_window->show();
    }

    std::string Renderer() override { return "raster, style " + QApplication::style()->name().toStdString(); }
    bool Turn(bool a_wait) override
    {
        return QApplication::eventDispatcher()->processEvents(a_wait ? QEventLoop::WaitForMoreEvents
                                                                     : QEventLoop::AllEvents);
    }
    void Repaint() override { m_window->update(); }
    void ShowPressed(bool a_isPressed) override { m_screen.button11->setDown(a_isPressed); }
    void SetText(const std::string& a_text) override { m_screen.button11->setText(QString::fromStdString(a_text)); }

    std::string ButtonsText(const std::vector<Peers::SButton>& a_buttons, int) override
    {
        const std::string geometry = "<property name=\"geometry\"><rect><x>{x}</x><y>{y}</y><width>{width}</width>"
                                     "<height>{height}</height></rect></property>\n";
        std::string text = "<ui version=\"4.0\">\n<class>Panel</class>\n<widget class=\"QWidget\" name=\"Panel\">\n";
        text += Peers::Fill(geometry, {0, 0, Peers::k_width, Peers::k_height, ""}, 0);
        for (std::size_t i = 0; i < a_buttons.size(); ++i)
        {
            text += Peers::Fill("<widget class=\"QPushButton\" name=\"button{number}\">\n" + geometry +
                                    "<property name=\"text\"><string>{text}</string></property>\n</widget>\n",
                                a_buttons[i], static_cast<int>(i));
        }
        return text + "</widget>\n</ui>\n";
    }
    std::string ScreenText(int) override { return Peers::ReadFile(PEER_FOLDER "Screen.ui"); }

    void Load([[maybe_unused]] const std::string& a_path) override
    {
#ifdef PEER_LOADER
        QFile file(QString::fromStdString(a_path));
        if (file.open(QIODevice::ReadOnly))
        {
            m_panel = m_loader.load(&file, m_window.get());
            m_panel->show();
        }
#endif
    }

    void Add(const std::vector<Peers::SButton>& a_buttons) override
    {
        m_panel = new QWidget(m_window.get());
        m_panel->setGeometry(0, 0, Peers::k_width, Peers::k_height);
        QPushButton* first = nullptr;
        for (const Peers::SButton& place : a_buttons)
        {
            auto* const button = new QPushButton(QString::fromStdString(place.text), m_panel);
            button->setGeometry(place.x, place.y, place.width, place.height);
            first = first == nullptr ? button : first;
        }
        QObject::connect(first, &QPushButton::clicked, Peers::CountClick);
        m_panel->show();
    }

    void Clear() override
    {
        delete m_panel;
    }

    bool Touch(bool a_isDown, int a_x, int a_y) override
    {
        QMouseEvent event(a_isDown ? QEvent::MouseButtonPress : QEvent::MouseButtonRelease, QPointF(a_x, a_y),
                          QPointF(a_x, a_y), Qt::LeftButton, a_isDown ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(m_window->windowHandle(), &event);
        return true;
    }

private:
    QApplication m_application;
    std::unique_ptr<CWindow> m_window;
    Ui::Screen m_screen{};
    QPointer<QWidget> m_panel;
#ifdef PEER_LOADER
    QUiLoader m_loader;
#endif
};

} // namespace

int main(int argc, char** argv)
{
    CQtWidgets peer(argc, argv);
    return Peers::Run(peer, argc, argv);
}
