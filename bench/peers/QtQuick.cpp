// Qt Quick, with its own controls; the screen is compiled into the program, as qt_add_qml_module does.

#include "Peer.h"

#include <QAbstractEventDispatcher>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <memory>

namespace
{

const char* const k_imports = "import QtQuick\nimport QtQuick.Controls.Basic\n";

/// What calls a button's signal.
class CClicks : public QObject
{
    Q_OBJECT

public slots:
    void Count() { Peers::CountClick(); }
};

class CQtQuick : public Peers::CPeer
{
public:
    CQtQuick(int& a_argc, char** a_argv) : m_application(a_argc, a_argv) {}

    void Start(bool a_withScreen) override
    {
        QFont font("DejaVu Sans");
        font.setPixelSize(20);
        QGuiApplication::setFont(font);
        m_view = std::make_unique<QQuickView>();
        m_view->setGeometry(0, 0, Peers::k_width, Peers::k_height);
        // Its thread draws.
        QObject::connect(
            m_view.get(), &QQuickWindow::frameSwapped, m_view.get(),
            []
            {
                Peers::CountFrame();
                QGuiApplication::eventDispatcher()->wakeUp();
            },
            Qt::DirectConnection);
        if (a_withScreen)
        {
            m_view->setSource(QUrl("qrc:/Peers/Screen.qml"));
            m_button = m_view->rootObject()->findChild<QQuickItem*>("button11");
        }
        m_view->show();
    }

    std::string Renderer() override
    {
        return m_view->rendererInterface()->graphicsApi() == QSGRendererInterface::OpenGL ? "scene graph, OpenGL"
                                                                                          : "scene graph, software";
    }
    bool Turn(bool a_wait) override
    {
        return QGuiApplication::eventDispatcher()->processEvents(a_wait ? QEventLoop::WaitForMoreEvents
                                                                        : QEventLoop::AllEvents);
    }
    void Repaint() override { m_view->update(); }
    void ShowPressed(bool a_isPressed) override { m_button->setProperty("down", a_isPressed); }
    void SetText(const std::string& a_text) override { m_button->setProperty("text", QString::fromStdString(a_text)); }

    std::string ButtonsText(const std::vector<Peers::SButton>& a_buttons, int) override
    {
        std::string text = k_imports + Peers::Fill("Item {\nwidth: {width}; height: {height}\n",
                                                   {0, 0, Peers::k_width, Peers::k_height, ""}, 0);
        for (std::size_t i = 0; i < a_buttons.size(); ++i)
        {
            text += Peers::Fill("Button { objectName: \"button{number}\"; x: {x}; y: {y}; width: {width}; height: "
                                "{height}; text: \"{text}\" }\n",
                                a_buttons[i], static_cast<int>(i));
        }
        return text + "}\n";
    }
    std::string ScreenText(int) override { return Peers::ReadFile(PEER_FOLDER "Screen.qml"); }

    void Load(const std::string& a_path) override
    {
        QQmlComponent component(m_view->engine(), QUrl::fromLocalFile(QString::fromStdString(a_path)));
        Show(qobject_cast<QQuickItem*>(component.create()));
    }

    void Add(const std::vector<Peers::SButton>& a_buttons) override
    {
        if (!m_buttonComponent)
        {
            m_buttonComponent = std::make_unique<QQmlComponent>(m_view->engine());
            m_buttonComponent->setData(std::string(std::string(k_imports) + "Button {}").c_str(), QUrl());
        }
        auto* const panel = new QQuickItem;
        panel->setSize(QSizeF(Peers::k_width, Peers::k_height));
        for (const Peers::SButton& place : a_buttons)
        {
            QObject* const button =
                m_buttonComponent->createWithInitialProperties({{"parent", QVariant::fromValue(panel)},
                                                                {"x", place.x},
                                                                {"y", place.y},
                                                                {"width", place.width},
                                                                {"height", place.height},
                                                                {"text", QString::fromStdString(place.text)}});
            button->setParent(panel);
            if (&place == &a_buttons.front())
            {
                QObject::connect(button, SIGNAL(clicked()), &m_clicks, SLOT(Count()));
            }
        }
        Show(panel);
    }

    void Clear() override { m_panel.reset(); }

    bool Touch(bool a_isDown, int a_x, int a_y) override
    {
        QMouseEvent event(a_isDown ? QEvent::MouseButtonPress : QEvent::MouseButtonRelease, QPointF(a_x, a_y),
                          QPointF(a_x, a_y), Qt::LeftButton, a_isDown ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
        QGuiApplication::sendEvent(m_view.get(), &event);
        return true;
    }

private:
    void Show(QQuickItem* a_panel)
    {
        m_panel.reset(a_panel);
        a_panel->setParentItem(m_view->contentItem());
    }

    QGuiApplication m_application;
    std::unique_ptr<QQuickView> m_view;
    std::unique_ptr<QQmlComponent> m_buttonComponent;
    std::unique_ptr<QQuickItem> m_panel;
    QQuickItem* m_button = nullptr;
    CClicks m_clicks;
};

} // namespace

int main(int argc, char** argv)
{
    CQtQuick peer(argc, argv);
    return Peers::Run(peer, argc, argv);
}

#include "QtQuick.moc"
