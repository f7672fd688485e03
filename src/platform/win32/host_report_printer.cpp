#include "platform/win32/host_report_printer.h"

#include "base/errors.h"
#include "platform/win32/connection_settings.h"
#include "platform/win32/report_objects.h"
#include "store/ado/ado_recordset.h"
#include "store/ado/calls.h"

namespace zv::platform::win32 {

using zv::win32::ComPtr;
using zv::win32::MakeCom;
using zv::win32::Variant;

namespace {

Variant Collection(const std::vector<std::string>& texts) {
    return Variant(static_cast<IDispatch*>(MakeCom<TextCollection>(texts).Get()));
}

/// The table as an object, as long as it is printed.
class PrintedTable {
 public:
    explicit PrintedTable(const ReportTable* table) {
        if (table) object_ = MakeCom<TableObject>(*table);
    }
    ~PrintedTable() {
        if (object_) object_->Detach();
    }
    PrintedTable(const PrintedTable&) = delete;
    PrintedTable& operator=(const PrintedTable&) = delete;

    Variant Value() const { return Variant(static_cast<IDispatch*>(object_.Get())); }

 private:
    ComPtr<TableObject> object_;
};

class Printing {
 public:
    explicit Printing(bool& flag) : flag_(flag) { flag_ = true; }
    ~Printing() { flag_ = false; }
    Printing(const Printing&) = delete;
    Printing& operator=(const Printing&) = delete;

 private:
    bool& flag_;
};

Variant RecordsetOf(const ReportJob& job) {
    const auto object = job.recordset ? store::ado::ObjectOf(*job.recordset) : ComPtr<IDispatch>();
    return Variant(object.Get());
}

void PutSettings(automation::LateBound& component, const ReportJob& job) {
    PutConnection(component, job.connection);
    component.Put(L"UserName", Variant(job.userName));
    component.Put(L"CompName", Variant(job.companyHeading));
    component.Put(L"Language", Variant(std::int32_t{job.language}));
    component.Put(L"Copyright", Variant(job.copyright));
}

void PrintWith(automation::LateBound& component, const ReportJob& job, const Variant& table) {
    PutSettings(component, job);
    component.Put(L"PrintMode", Variant(std::int32_t{job.printMode}));
    component.Put(L"ReportName", Variant(job.reportName));
    component.Put(L"Title", Variant(job.title));
    component.Put(L"SubTitle", Variant(job.subTitle));
    component.Put(L"Filter", Variant(job.filter));
    component.Put(L"Order", Variant(job.order));
    component.Put(L"Parameters", Collection(job.parameters));
    component.Put(L"Columns", Collection(job.columns));
    component.Put(L"Recordset", RecordsetOf(job));
    component.Put(L"Grid", table);
    // Components of other hosts know nothing of it and print as ever.
    component.PutIfOffered(L"Criteria", Variant(job.asked));
    component.Call(L"PrintOut");
}

}  // namespace

void HostReportPrinter::Prepare() {
    if (!component_) component_ = automation::LateBound::Create(kProgId);
}

void HostReportPrinter::Print(const ReportJob& job) {
    // The windows beside a preview still work; one component prints one job at a time.
    if (printing_) throw RuntimeError(ErrorNumber::FormAlreadyShown);
    Prepare();
    const Printing printing(printing_);
    // A copy: a preview runs messages, in which the component may be released here.
    automation::LateBound component = *component_;
    const PrintedTable table(job.grid);
    store::ado::WithKinds([&] { PrintWith(component, job, table.Value()); });
}

}  // namespace zv::platform::win32
