#include "session/choose_file.h"

#include <exception>

#include "session/session.h"

namespace zv {

std::string ChooseFile(Session& session, std::int16_t kind, const std::string& filter,
                       const std::string& fileName, const std::string& dialogTitle,
                       const std::string& folder) {
    forms::FileRequest request;
    request.flags =
        kind == 1 ? forms::FileRequest::kFileMustExist : forms::FileRequest::kPromptToCreate;
    request.filter = filter;
    request.initialFile = fileName;
    request.title = dialogTitle;
    request.initialFolder = folder;
    try {
        return session.windows.ChooseFile(request).value_or("");
    } catch (const std::exception&) {
        // A dialog that fails is a dialog without a choice.
        return {};
    }
}

}  // namespace zv
