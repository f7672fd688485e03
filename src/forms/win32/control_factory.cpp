#include "forms/win32/control_factory.h"

#include "forms/win32/button_peers.h"
#include "forms/win32/canvas_peer.h"
#include "forms/win32/combo_peer.h"
#include "forms/win32/date_picker_peer.h"
#include "forms/win32/grid_peer.h"
#include "forms/win32/label_peer.h"
#include "forms/win32/list_box_peer.h"
#include "forms/win32/panel_peers.h"
#include "forms/win32/picture_peer.h"
#include "forms/win32/progress_peer.h"
#include "forms/win32/tab_peer.h"
#include "forms/win32/text_box_peer.h"
#include "forms/win32/timer_peer.h"
#include "forms/win32/tree_peer.h"
#include "forms/win32/up_down_peer.h"

namespace zv::forms::win32 {
namespace {

template <typename Native, typename Peer = PeerOf<ControlPeer, Native>>
std::shared_ptr<NativeControl> Make(FormWindow& window, Control& control) {
    auto native = std::make_shared<Native>(window, control);
    control.AttachPeer(std::make_unique<Peer>(native));
    return native;
}

}  // namespace

std::shared_ptr<NativeControl> MakeNative(FormWindow& window, Control& control) {
    switch (control.Kind()) {
        case ControlKind::Label:
            return Make<NativeLabel>(window, control);
        case ControlKind::TextBox:
            return Make<NativeTextBox>(window, control);
        case ControlKind::ComboBox:
            return Make<NativeCombo>(window, control);
        case ControlKind::CheckBox:
            return Make<NativeCheckBox>(window, control);
        case ControlKind::OptionButton:
            return Make<NativeOption>(window, control);
        case ControlKind::CommandButton:
            return Make<NativeCommand>(window, control);
        case ControlKind::DatePicker:
            return Make<NativeDatePicker>(window, control);
        case ControlKind::UpDown:
            return Make<NativeUpDown>(window, control);
        case ControlKind::TabPanel:
            return Make<NativeTab>(window, control);
        case ControlKind::Panel:
            return Make<NativePanel>(window, control);
        case ControlKind::Frame:
            return Make<NativeFrame>(window, control);
        case ControlKind::TreeView:
            return Make<NativeTree, NativeTreePeer>(window, control);
        case ControlKind::ListBox:
            return Make<NativeListBox>(window, control);
        case ControlKind::Grid:
            return Make<NativeGrid>(window, control);
        case ControlKind::Picture:
            return Make<NativePicture>(window, control);
        case ControlKind::Canvas:
            return Make<NativeCanvas>(window, control);
        case ControlKind::ProgressBar:
            return Make<NativeProgressBar>(window, control);
        case ControlKind::Timer:
            control.AttachPeer(std::make_unique<TimerPeer>(window, control));
            return nullptr;
    }
    return nullptr;
}

}  // namespace zv::forms::win32
