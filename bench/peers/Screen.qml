import QtQuick
import QtQuick.Controls.Basic

Item {
    width: 800
    height: 480

    Label { x: 10; y: 8; width: 400; height: 28; text: "Settings"; verticalAlignment: Text.AlignVCenter }
    Button { x: 10; y: 44; width: 120; height: 44; text: "Button 0" }
    Button { x: 140; y: 44; width: 120; height: 44; text: "Button 1" }
    Button { x: 270; y: 44; width: 120; height: 44; text: "Button 2" }
    Button { x: 10; y: 96; width: 120; height: 44; text: "Button 3" }
    Button { x: 140; y: 96; width: 120; height: 44; text: "Button 4" }
    Button { x: 270; y: 96; width: 120; height: 44; text: "Button 5" }
    Button { x: 10; y: 148; width: 120; height: 44; text: "Button 6" }
    Button { x: 140; y: 148; width: 120; height: 44; text: "Button 7" }
    Button { x: 270; y: 148; width: 120; height: 44; text: "Button 8" }
    Button { x: 10; y: 200; width: 120; height: 44; text: "Button 9" }
    Button { x: 140; y: 200; width: 120; height: 44; text: "Button 10" }
    Button { objectName: "button11"; x: 270; y: 200; width: 120; height: 44; text: "Button 11" }
    Button { x: 410; y: 8; width: 310; height: 44; text: "Row number 0" }
    Button { x: 410; y: 56; width: 310; height: 44; text: "Row number 1" }
    Button { x: 410; y: 104; width: 310; height: 44; text: "Row number 2" }
    Button { x: 410; y: 152; width: 310; height: 44; text: "Row number 3" }
    Button { x: 410; y: 200; width: 310; height: 44; text: "Row number 4" }
    Button { x: 410; y: 248; width: 310; height: 44; text: "Row number 5" }
    Button { x: 410; y: 296; width: 310; height: 44; text: "Row number 6" }
    Button { x: 410; y: 344; width: 310; height: 44; text: "Row number 7" }
    ScrollBar { x: 730; y: 8; width: 60; height: 380; size: 0.3; position: 0.21; policy: ScrollBar.AlwaysOn }
    ProgressBar { x: 10; y: 262; width: 380; height: 24; to: 100; value: 60 }
    CheckBox { x: 10; y: 300; width: 180; height: 32; text: "Check box" }
    RadioButton { x: 10; y: 340; width: 180; height: 32; text: "First choice"; checked: true }
    RadioButton { x: 200; y: 340; width: 180; height: 32; text: "Second choice" }
    Label {
        x: 10; y: 384; width: 780; height: 90
        text: "Turn left at the lights Turn left at the lights Turn left at the lights Turn left at the lights Turn left at the lights Turn left at the lights Turn left at the lights Turn left at the lights Turn left at the lights Turn left at the lights Turn left at the lights Turn left at the lights"
        wrapMode: Text.WordWrap
        verticalAlignment: Text.AlignVCenter
    }
}
