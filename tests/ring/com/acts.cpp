#include "flows.h"
#include "ring.h"

namespace zv::ring::com {

namespace {

void Release(Stage& stage) {
    stage.control.Reset();
}

void Deactivate(Stage& stage) {
    if (auto* place = stage.Borrow<IOleInPlaceObject>()) place->InPlaceDeactivate();
}

void DeactivateUi(Stage& stage) {
    if (auto* place = stage.Borrow<IOleInPlaceObject>()) place->UIDeactivate();
}

void Close(Stage& stage) {
    if (auto* object = stage.Borrow<IOleObject>()) object->Close(OLECLOSE_SAVEIFDIRTY);
}

void CloseAndRelease(Stage& stage) {
    Close(stage);
    if (auto* object = stage.Borrow<IOleObject>()) object->SetClientSite(nullptr);
    Release(stage);
}

void TakeSite(Stage& stage) {
    if (auto* object = stage.Borrow<IOleObject>()) object->SetClientSite(nullptr);
}

void ChangeSite(Stage& stage) {
    if (auto* object = stage.Borrow<IOleObject>()) object->SetClientSite(&stage.otherSite);
}

void Show(Stage& stage) {
    if (auto* object = stage.Borrow<IOleObject>()) {
        object->DoVerb(OLEIVERB_SHOW, nullptr, &stage.site, 0, stage.window, nullptr);
    }
}

void ShowUi(Stage& stage) {
    if (auto* object = stage.Borrow<IOleObject>()) {
        object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, &stage.site, 0, stage.window, nullptr);
    }
}

void DestroyParent(Stage& stage) {
    DestroyWindow(stage.window);
}

void SetProperty(Stage& stage) {
    if (auto* task = stage.Borrow<ITask>(zv::com::kInterfaceId)) task->put_AlertType(3);
}

void Initialise(Stage& stage) {
    if (auto* persist = stage.Borrow<IPersistStreamInit>()) persist->InitNew();
}

void SaveMeanwhile(Stage& stage) {
    if (stage.control) Image(*stage.control);
}

void LoadMeanwhile(Stage& stage) {
    if (!stage.control) return;
    Trouble none;
    Stream stream(none);
    stream.bytes = Image(*stage.control);
    if (auto* persist = stage.Borrow<IPersistStreamInit>()) persist->Load(&stream);
}

void Refresh(Stage& stage) {
    if (!stage.control) return;
    SetDatabase(*stage.control.As<IDispatch>());
    const Closer closer;
    if (auto* task = stage.Borrow<ITask>(zv::com::kInterfaceId)) task->refresh(8, 0);
}

void RefreshModal(Stage& stage) {
    if (!stage.control) return;
    SetDatabase(*stage.control.As<IDispatch>());
    const Closer closer;
    if (auto* task = stage.Borrow<ITask>(zv::com::kInterfaceId)) task->refresh(9, 1);
}

void UnadviseBoth(Stage& stage) {
    for (const IID& iid : {IID_IPropertyNotifySink, zv::com::kEventsId}) {
        for (const DWORD cookie : {stage.cookie, stage.secondCookie}) {
            if (auto* point = stage.Point(iid)) point->Unadvise(cookie);
        }
    }
}

void AdviseMore(Stage& stage) {
    for (const IID& iid : {IID_IPropertyNotifySink, zv::com::kEventsId}) {
        DWORD cookie = 0;
        if (auto* point = stage.Point(iid)) point->Advise(stage.secondSink.Identity(), &cookie);
    }
}

void UnadviseView(Stage& stage) {
    if (auto* view = stage.Borrow<IViewObject2>()) view->SetAdvise(DVASPECT_CONTENT, 0, nullptr);
}

void AskToUnload(Stage&) {
    container::File().canUnload();
}

void TakeLong(Stage&) {
    Sleep(30);
}

void Pump(Stage&) {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
}

}  // namespace

const std::vector<Act>& Acts() {
    constexpr HRESULT kOfNobody = static_cast<HRESULT>(0x8ABC1234);
    static const std::vector<Act> acts{
        {"answers E_FAIL", nullptr, E_FAIL},
        {"answers E_OUTOFMEMORY", nullptr, E_OUTOFMEMORY},
        {"answers a number of its own", nullptr, kOfNobody},
        {"answers S_FALSE", nullptr, S_FALSE},
        {"answers S_OK and does nothing", nullptr, S_OK},
        {"releases", &Release, {}},
        {"releases and fails", &Release, E_FAIL},
        {"deactivates", &Deactivate, {}},
        {"deactivates the user's part", &DeactivateUi, {}},
        {"closes", &Close, {}},
        {"closes and releases", &CloseAndRelease, {}},
        {"takes the site", &TakeSite, {}},
        {"takes the site and fails", &TakeSite, E_FAIL},
        {"changes the site", &ChangeSite, {}},
        {"shows", &Show, {}},
        {"activates", &ShowUi, {}},
        {"destroys the parent", &DestroyParent, {}},
        {"sets a property", &SetProperty, {}},
        {"initialises", &Initialise, {}},
        {"saves", &SaveMeanwhile, {}},
        {"loads", &LoadMeanwhile, {}},
        {"refreshes", &Refresh, {}},
        {"opens a modal window", &RefreshModal, {}, true},
        {"disconnects", &UnadviseBoth, {}},
        {"connects", &AdviseMore, {}},
        {"ends the view's connection", &UnadviseView, {}},
        {"asks for unloading", &AskToUnload, {}},
        {"takes long", &TakeLong, {}},
        {"pumps", &Pump, {}},
    };
    return acts;
}

}  // namespace zv::ring::com
