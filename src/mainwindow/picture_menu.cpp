#include "mainwindow/picture_menu.h"

#include "mainwindow/frm_task_main.h"

namespace zv::mainwindow {

void PictureMenu::Wire() {
    window_.picImage.onMouseMove = [this](const forms::MouseEvent& event) {
        picImage_MouseMove(event);
    };
    window_.menus.mnuImgClose.onClick = [this] { window_.cmdExit_Click(); };
    window_.menus.mnuImgRestore.onClick = [this] {
        window_.SetState(forms::WindowState::Normal);
        window_.Show(false);
    };
}

void PictureMenu::picImage_MouseMove(const forms::MouseEvent& event) {
    constexpr int kSpot = 0x1E3C;  // twips from the picture's top
    if (event.y != kSpot) return;
    const forms::Rect& picture = window_.picImage.Bounds();
    window_.PopupMenu(window_.menus.mnuImg, picture.left + event.x / forms::kTwipsPerUnit,
                      picture.top + event.y / forms::kTwipsPerUnit);
}

}  // namespace zv::mainwindow
