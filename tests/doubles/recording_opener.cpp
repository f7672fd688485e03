#include "doubles/recording_opener.h"

#include "store/sqlite/sqlite_connection.h"

namespace zv::doubles {

std::unique_ptr<store::Connection> RecordingOpener::Open(
    const store::ConnectionSettings& settings) {
    openings++;
    last = settings;
    return open ? open(settings) : store::OpenSqlite(settings.dataPath.ForDriver());
}

}  // namespace zv::doubles
