// The rows of a statement, for reading.
#pragma once

#include <deque>
#include <memory>
#include <vector>

#include "store/rows/row_source.h"
#include "store/sqlite/session.h"

namespace zv::store::sqlite {

/// Reads each row from the engine when it becomes current, and each field when it is asked for.
/// Before the connection writes, the rest of the rows is taken into memory: a half-read statement
/// would see some of the writes and keep the write-ahead log from being emptied. In a roll-back
/// mode all rows are taken at the first one: a half-read statement would keep everyone from
/// writing.
class ResultRows final : public rows::RowSource {
 public:
    /// `statement` has not run yet.
    ResultRows(std::shared_ptr<Session> session, Statement statement);

    bool Advance() override;
    void Read(int field, Value& value) override;
    void Detach() override;

 private:
    void ReadStep(int field, Value& value) const;
    void TakeStep(std::deque<std::vector<Value>>& rows) const;
    /// The row of the present step and all behind it.
    void TakeAll();

    std::shared_ptr<Session> session_;
    Statement statement_;  ///< none once detached or read to the end
    std::vector<Value> current_;
    std::deque<std::vector<Value>> rest_;  ///< rows after the current one, once detached
};

}  // namespace zv::store::sqlite
