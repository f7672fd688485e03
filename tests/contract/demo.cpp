// Every kind of control in one window, to look at: zv_forms_demo [SECONDS]
#include <windows.h>

#include <cstdlib>

#include "forms/buttons.h"
#include "forms/containers.h"
#include "forms/date_picker.h"
#include "forms/form.h"
#include "forms/grid.h"
#include "forms/label.h"
#include "forms/lists.h"
#include "forms/menu.h"
#include "forms/picture.h"
#include "forms/text_box.h"
#include "forms/timer.h"
#include "forms/tree_view.h"
#include "forms/up_down.h"
#include "forms/win32/win32_backend.h"

namespace {

using namespace zv::forms;

struct Images : ImageList {
    Images() {
        Add("group", {{{Shape::Kind::Polygon,
                        0xFFE8B84A,
                        {{1, 3}, {6, 3}, {8, 5}, {15, 5}, {15, 13}, {1, 13}}}}});
        Add("open", {{{Shape::Kind::Ellipse, 0xFFC0392B, {{2, 2}, {14, 14}}},
                      {Shape::Kind::Line, 0xFFFFFFFF, {{8, 4.5}, {8, 8.5}, {11, 10}}, 1.5}}});
        Add("done", {{{Shape::Kind::Ellipse, 0xFF2E8B57, {{2, 2}, {14, 14}}},
                      {Shape::Kind::Line, 0xFFFFFFFF, {{4.5, 8}, {7, 11}, {11.5, 5}}, 1.8}}});
    }
};

class DemoForm : public Form {
 public:
    explicit DemoForm(WindowSystem& windows) : Form(windows, "frmDemo") {
        SetCaption("任务报警器 - 任務管理器");
        SetSizable(true);
        SetMinimumClientSize({640, 460});
        SetClientSize({760, 540});
        tvwTask.SetImageList(&images);
        const TreeView::Fill fill(tvwTask);
        for (int g = 0; g < 3; g++) {
            const int group = tvwTask.Add(TreeView::kNone, "A" + std::to_string(g),
                                          g ? "客户来访" : "任务", "group");
            for (int i = 0; i < 6; i++) {
                tvwTask.Add(group, "Z" + std::to_string(g * 10 + i),
                            "(2003-03-0" + std::to_string(i + 1) + ")\t月度报表 檢查資料",
                            i % 2 ? "done" : "open");
            }
            tvwTask.SetExpanded(group, g < 2);
        }
        const char* captions[] = {"项目(&I)", "过滤(&F)", "名片", "選項"};
        for (int i = 0; i < 4; i++) SSTab1.SetTabCaption(i, captions[i]);
        lblTitle.SetCaption("标题(&L):");
        txtTitle.SetText("每月报表");
        txtLocked.SetText("锁定的文字");
        txtLocked.SetLocked(true);
        txtNotes.SetMultiLine(true);
        txtNotes.SetText("第一行\r\n第二行");
        chkDone.SetCaption("已完成(&D)");
        chkDone.SetValue(1);
        optOne.SetCaption("任务");
        optTwo.SetCaption("日记");
        optOne.SetValue(true);
        cboState.SetItems({"未完成", "在办", "完成"});
        cboState.SetListIndex(0);
        cobName.SetItems({"张三", "李四"});
        cobName.SetText("王五");
        dtpEmpty.SetMayBeEmpty(true);
        dtpDate.SetValue(zv::DateTime(2003, 3, 7));
        dtpTime.SetFormat(DateFormat::DateTime);
        dtpTime.SetValue(zv::DateTime(2003, 3, 7, 9, 30));
        fraKind.SetCaption("类型");
        optFirst.SetCaption("第一(&1)");
        optSecond.SetCaption("第二(&2)");
        lstNames.SetItems({"张三", "李四", "王五"});
        grdList.SetColumns({{"编号", 60}, {"名称", 120}});
        grdList.SetDataRowCount(3);
        for (int row = 1; row <= 3; row++) grdList.SetCell(row, 2, "生日 " + std::to_string(row));
        picIcon.SetImage(images.At(2));
        cmdOK.SetCaption("确定(&O)");
        cmdCancel.SetCaption("取消");
        cmdOff.SetCaption("不可用");
        cmdOff.SetEnabled(false);
        defaultButton = &cmdOK;
        cancelButton = &cmdCancel;
        cmdCancel.onClick = [this] { Unload(); };
        cmdOK.onClick = [this] {
            cmdOff.SetCaption(std::to_string(
                static_cast<int>(Windows().ShowMessage("确认: 您已经完成了任务 [报表] ?", 33))));
        };
        mnuAsk.onClick = [this] {
            if (auto text = Windows().AskText("请输入模块密码:", true)) txtTitle.SetText(*text);
        };
        mnuFile.onClick = [this] {
            if (auto path = Windows().ChooseFile({})) txtTitle.SetText(*path);
        };
        tvwTask.onMouseDown = [this](const MouseEvent& event) {
            PopupMenu(mnuTask, event.x / kTwipsPerUnit, event.y / kTwipsPerUnit);
        };
        tvwTask.onNodeClick = [this](int node) {
            txtTitle.SetText(std::string(tvwTask.Text(node)));
        };
        updPage.onUpClick = [this] { txtLocked.SetText("上"); };
        updPage.onDownClick = [this] { txtLocked.SetText("下"); };
    }

 protected:
    void Form_Resize() override {
        const Size size = ClientSize();
        tvwTask.Move({8, 8, 240, size.height - 16});
        SSTab1.Move({256, 8, size.width - 264, size.height - 56});
        lblTitle.Move({12, 14, 70, 18});
        txtTitle.Move({88, 10, 220, 23});
        txtLocked.Move({88, 38, 220, 23});
        txtNotes.Move({88, 66, 220, 60});
        chkDone.Move({320, 10, 140, 22});
        optOne.Move({320, 38, 70, 22});
        optTwo.Move({396, 38, 70, 22});
        cboState.Move({320, 66, 140, 23});
        cobName.Move({320, 94, 140, 23});
        dtpDate.Move({12, 136, 110, 23});
        dtpEmpty.Move({130, 136, 130, 23});
        dtpTime.Move({268, 136, 150, 23});
        updPage.Move({424, 136, 18, 23});
        fraKind.Move({12, 168, 180, 80});
        optFirst.Move({12, 22, 150, 22});
        optSecond.Move({12, 46, 150, 22});
        lstNames.Move({204, 172, 110, 76});
        grdList.Move({12, 258, 300, 120});
        picIcon.Move({330, 172, 48, 48});
        cmdOff.Move({size.width - 96, size.height - 38, 88, 28});
        cmdCancel.Move({size.width - 192, size.height - 38, 88, 28});
        cmdOK.Move({size.width - 288, size.height - 38, 88, 28});
    }

 private:
    Images images;
    MenuItem mnuTask{*this, "mnuTask", nullptr, "任务(&T)"};
    MenuItem mnuAsk{*this, "mnuAsk", &mnuTask, "密码(&P)..."};
    MenuItem mnuLine{*this, "mnuLine", &mnuTask, "-"};
    MenuItem mnuFile{*this, "mnuFile", &mnuTask, "文件(&F)..."};
    TreeView tvwTask{*this, "tvwTask"};
    TabPanel SSTab1{*this, "SSTab1", nullptr, 4};
    Label lblTitle{*this, "lblTitle", &SSTab1.Page(0)};
    TextBox txtTitle{*this, "txtTitle", &SSTab1.Page(0)};
    TextBox txtLocked{*this, "txtLocked", &SSTab1.Page(0)};
    TextBox txtNotes{*this, "txtNotes", &SSTab1.Page(0)};
    CheckBox chkDone{*this, "chkDone", &SSTab1.Page(0)};
    OptionButton optOne{*this, "optOne", &SSTab1.Page(0)};
    OptionButton optTwo{*this, "optTwo", &SSTab1.Page(0)};
    ComboBox cboState{*this, "cboState", &SSTab1.Page(0), ComboStyle::ListOnly};
    ComboBox cobName{*this, "cobName", &SSTab1.Page(0), ComboStyle::FreeText};
    DatePicker dtpDate{*this, "dtpDate", &SSTab1.Page(0)};
    DatePicker dtpEmpty{*this, "dtpEmpty", &SSTab1.Page(0)};
    DatePicker dtpTime{*this, "dtpTime", &SSTab1.Page(0)};
    UpDown updPage{*this, "updPage", &SSTab1.Page(0)};
    Frame fraKind{*this, "fraKind", &SSTab1.Page(0)};
    OptionButton optFirst{*this, "optFirst", &fraKind};
    OptionButton optSecond{*this, "optSecond", &fraKind};
    ListBox lstNames{*this, "lstNames", &SSTab1.Page(0)};
    Grid grdList{*this, "grdList", &SSTab1.Page(0)};
    Picture picIcon{*this, "picIcon", &SSTab1.Page(0)};
    CommandButton cmdOK{*this, "cmdOK"};
    CommandButton cmdCancel{*this, "cmdCancel"};
    CommandButton cmdOff{*this, "cmdOff"};
};

}  // namespace

// The loop of a host that knows nothing of the window in it.
int wmain(int count, wchar_t** arguments) {
    win32::Win32Backend backend(GetModuleHandleW(nullptr));
    WindowSystem windows(backend);
    windows.Create<DemoForm>().Show(false);
    if (count > 1) SetTimer(nullptr, 0, static_cast<UINT>(_wtoi(arguments[1])) * 1000, nullptr);
    MSG message{};
    while (!windows.Windows().empty() && GetMessageW(&message, nullptr, 0, 0)) {
        if (message.message == WM_TIMER && !message.hwnd) break;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return 0;
}
