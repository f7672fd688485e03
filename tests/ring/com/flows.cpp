#include "flows.h"

#include "ring.h"

namespace zv::ring::com {

namespace {

constexpr LONG kVerbs[] = {OLEIVERB_SHOW, OLEIVERB_INPLACEACTIVATE, OLEIVERB_UIACTIVATE,
                           OLEIVERB_HIDE};

void Activate(Stage& stage) {
    if (auto* object = stage.Borrow<IOleObject>()) object->SetClientSite(&stage.site);
    for (const LONG verb : kVerbs) {
        if (auto* object = stage.Borrow<IOleObject>()) {
            object->DoVerb(verb, nullptr, &stage.site, 0, stage.window, nullptr);
        }
    }
    if (auto* object = stage.Borrow<IOleObject>()) {
        object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, &stage.site, 0, stage.window, nullptr);
    }
    if (auto* place = stage.Borrow<IOleInPlaceObject>()) place->UIDeactivate();
    if (auto* place = stage.Borrow<IOleInPlaceObject>()) place->InPlaceDeactivate();
    if (auto* object = stage.Borrow<IOleObject>()) object->SetClientSite(nullptr);
}

void CloseWhileActive(Stage& stage) {
    if (auto* object = stage.Borrow<IOleObject>()) object->SetClientSite(&stage.site);
    if (auto* task = stage.Borrow<IDispatch>()) {
        container::Put(*task, L"myModel", Variant("changed"));
    }
    if (auto* object = stage.Borrow<IOleObject>()) {
        object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, &stage.site, 0, stage.window, nullptr);
    }
    if (stage.Lives()) {
        if (const HWND child = GetWindow(stage.window, GW_CHILD)) {
            SendMessageW(child, WM_LBUTTONDOWN, 0, 0);
            RedrawWindow(child, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
        }
    }
    if (auto* object = stage.Borrow<IOleObject>()) object->Close(OLECLOSE_SAVEIFDIRTY);
    if (auto* object = stage.Borrow<IOleObject>()) object->SetClientSite(nullptr);
}

void Ambient(Stage& stage) {
    if (auto* object = stage.Borrow<IOleObject>()) object->SetClientSite(&stage.site);
    if (auto* object = stage.Borrow<IOleObject>()) {
        object->DoVerb(OLEIVERB_SHOW, nullptr, &stage.site, 0, stage.window, nullptr);
    }
    stage.site.userMode = true;
    if (auto* control = stage.Borrow<IOleControl>()) {
        control->OnAmbientPropertyChange(DISPID_AMBIENT_USERMODE);
    }
    if (auto* object = stage.Borrow<IOleObject>()) object->SetClientSite(nullptr);
}

// However much there is to read, it comes in some ten parts.
void FillStream(Stage& stage) {
    if (!stage.control) return;
    constexpr std::size_t kParts = 10;
    stage.stream.bytes = Image(*stage.control);
    stage.stream.most = static_cast<ULONG>(stage.stream.bytes.size() / kParts + 1);
}

void LoadStream(Stage& stage) {
    FillStream(stage);
    if (auto* persist = stage.Borrow<IPersistStreamInit>()) persist->Load(&stage.stream);
}

void SaveStream(Stage& stage) {
    if (auto* persist = stage.Borrow<IPersistStreamInit>()) persist->Save(&stage.stream, TRUE);
}

void LoadStorage(Stage& stage) {
    FillStream(stage);
    if (auto* persist = stage.Borrow<IPersistStorage>()) persist->Load(&stage.storage);
}

void SaveStorage(Stage& stage) {
    if (auto* object = stage.Borrow<IOleObject>()) {
        DWORD advised = 0;
        object->Advise(&stage.sink, &advised);
    }
    if (auto* persist = stage.Borrow<IPersistStorage>()) persist->InitNew(&stage.storage);
    if (auto* persist = stage.Borrow<IPersistStorage>()) persist->Save(&stage.storage, TRUE);
    if (auto* persist = stage.Borrow<IPersistStorage>()) persist->SaveCompleted(nullptr);
}

void LoadBag(Stage& stage) {
    stage.bag.value = Variant(std::int16_t{1}).Detach();
    if (auto* persist = stage.Borrow<IPersistPropertyBag>()) {
        persist->Load(&stage.bag, &stage.bag);
    }
    Object& object = stage.troupe.Make<Object>(stage.trouble);
    stage.bag.value.vt = VT_DISPATCH;
    stage.bag.value.pdispVal = &object;
    if (auto* persist = stage.Borrow<IPersistPropertyBag>()) {
        persist->Load(&stage.bag, &stage.bag);
    }
}

void SaveBag(Stage& stage) {
    if (auto* persist = stage.Borrow<IPersistPropertyBag>()) persist->Save(&stage.bag, TRUE, TRUE);
}

void ReadEvents(Stage& stage) {
    Object& bag = stage.troupe.Make<Object>(stage.trouble);
    bag.knowsNames = true;
    for (const wchar_t* name : {L"UserControl_ReadProperties", L"UserControl_WriteProperties"}) {
        if (auto* task = stage.Borrow<IDispatch>()) {
            VARIANT argument{};
            argument.vt = VT_DISPATCH;
            argument.pdispVal = &bag;
            container::Call(*task, name, {argument});
        }
    }
}

void AssignObject(Stage& stage) {
    Object& object = stage.troupe.Make<Object>(stage.trouble);
    object.value = Variant(std::int32_t{1}).Detach();
    VARIANT argument{};
    argument.vt = VT_DISPATCH;
    argument.pdispVal = &object;
    for (const wchar_t* name : {L"myTaskID", L"Copyright", L"UserPath", L"Language"}) {
        DISPID put = DISPID_PROPERTYPUT;
        DISPPARAMS parameters{&argument, &put, 1, 1};
        if (auto* task = stage.Borrow<IDispatch>()) {
            const DISPID id = container::IdOf(*task, name);
            task->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT, &parameters,
                         nullptr, nullptr, nullptr);
        }
    }
}

void Listen(Stage& stage) {
    if (auto* point = stage.Point(IID_IPropertyNotifySink)) {
        point->Advise(stage.sink.Identity(), &stage.cookie);
    }
    if (auto* point = stage.Point(IID_IPropertyNotifySink)) {
        point->Advise(stage.secondSink.Identity(), &stage.secondCookie);
    }
    for (const std::int16_t value : {std::int16_t{1}, std::int16_t{0}}) {
        if (auto* task = stage.Borrow<IDispatch>()) {
            DISPID put = DISPID_PROPERTYPUT;
            VARIANT argument = Variant(value).Detach();
            DISPPARAMS parameters{&argument, &put, 1, 1};
            const DISPID id = container::IdOf(*task, L"AlertType");
            task->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT, &parameters,
                         nullptr, nullptr, nullptr);
        }
    }
    if (auto* persist = stage.Borrow<IPersistStreamInit>()) persist->InitNew();
}

void HearEvents(Stage& stage) {
    if (auto* point = stage.Point(zv::com::kEventsId))
        point->Advise(stage.sink.Identity(), &stage.cookie);
    if (auto* point = stage.Point(zv::com::kEventsId)) {
        point->Advise(stage.secondSink.Identity(), &stage.secondCookie);
    }
    if (stage.control) SetDatabase(*stage.control.As<IDispatch>());
    const Closer closer;
    if (auto* task = stage.Borrow<ITask>(zv::com::kInterfaceId)) task->refresh(9, 0);
    CloseWindows();
}

void Watch(Stage& stage) {
    DWORD connection = 0;
    FORMATETC format{CF_ENHMETAFILE, nullptr, DVASPECT_CONTENT, -1, TYMED_ENHMF};
    if (auto* view = stage.Borrow<IViewObject2>()) {
        view->SetAdvise(DVASPECT_CONTENT, ADVF_PRIMEFIRST, &stage.sink);
    }
    if (auto* data = stage.Borrow<IDataObject>()) {
        data->DAdvise(&format, ADVF_PRIMEFIRST, &stage.secondSink, &connection);
    }
    SIZEL size{3000, 2000};
    if (auto* object = stage.Borrow<IOleObject>()) object->SetExtent(DVASPECT_CONTENT, &size);
    if (auto* view = stage.Borrow<IViewObject2>()) view->SetAdvise(DVASPECT_CONTENT, 0, nullptr);
    if (auto* data = stage.Borrow<IDataObject>()) data->DUnadvise(connection);
}

void Draw(Stage& stage) {
    if (auto* object = stage.Borrow<IOleObject>()) object->SetClientSite(&stage.site);
    const HDC screen = GetDC(nullptr);
    RECTL bounds{0, 0, 40, 40};
    if (auto* view = stage.Borrow<IViewObject2>()) {
        view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, screen, &bounds, nullptr,
                   nullptr, 0);
    }
    ReleaseDC(nullptr, screen);
    FORMATETC format{CF_ENHMETAFILE, nullptr, DVASPECT_CONTENT, -1, TYMED_ENHMF};
    STGMEDIUM medium{};
    if (auto* data = stage.Borrow<IDataObject>()) {
        if (data->GetData(&format, &medium) == S_OK) ReleaseStgMedium(&medium);
    }
    if (auto* object = stage.Borrow<IOleObject>()) object->SetClientSite(nullptr);
}

}  // namespace

const std::vector<Flow>& Flows() {
    static const std::vector<Flow> flows{
        {"activate", &Activate},
        {"close while active", &CloseWhileActive},
        {"ambient properties", &Ambient},
        {"load from a stream", &LoadStream},
        {"save to a stream", &SaveStream},
        {"load from a storage", &LoadStorage},
        {"save to a storage", &SaveStorage},
        {"load from a bag", &LoadBag},
        {"save to a bag", &SaveBag},
        {"read and write with an object", &ReadEvents},
        {"assign an object", &AssignObject},
        {"hear of properties", &Listen},
        {"hear events", &HearEvents, true},
        {"watch the view", &Watch},
        {"draw", &Draw},
    };
    return flows;
}

std::string Play(const Flow& flow, const Act& act, int call, bool& reached) {
    Now(std::string(flow.name) + ", " + act.name + ", call " + std::to_string(call));
    Stage stage;
    if (!stage.control) {
        reached = false;
        return "no control\n";
    }
    stage.trouble.Plan(call, act.answer,
                       act.run ? [&] { act.run(stage); } : std::function<void()>());
    flow.play(stage);
    reached = stage.trouble.Happened();
    const std::string where = stage.trouble.Where();
    Now(std::string(flow.name) + ", " + act.name + ", call " + std::to_string(call) + " (" + where +
        "), at the end");
    std::string wrong;
    if (const auto* task = stage.control.Get()) {
        if (Image(*const_cast<IUnknown*>(task)).empty()) wrong += "it cannot be saved\n";
    }
    wrong += stage.Close();
    if (wrong.empty()) return wrong;
    return std::string(flow.name) + ", " + act.name + ", call " + std::to_string(call) + " (" +
           where + "):\n" + wrong;
}

}  // namespace zv::ring::com
