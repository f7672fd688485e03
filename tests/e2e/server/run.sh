#!/usr/bin/env bash
# Two workstations, each the real control in a process of its own, on one PostgreSQL server: what
# one user does the other sees at the next refill, neither loses the other's work unasked, and both
# outlive a server that goes and comes back. The server is the suite's own.
#
# Needs ZV_BIN and ZV_TEST_BIN, as tests/e2e/playing.sh says. Closes with "N passed, N failed".
set -uo pipefail
cd "$(dirname "$0")/../../.."
source tests/e2e/playing.sh
source tests/e2e/workstations.sh
folder=$work/server
rows_are() { [ "$(psql -X -q -A -t -c "$1")" = "$2" ]; }

chmod 755 "$work"
facts=$(tests/server/postgresql.sh start "$folder") || { echo "0 passed, 1 failed"; exit 1; }
eval "$facts"
address=$ZV_TEST_POSTGRESQL
data=$work/none
set_up_workstation
expect "the tables are made over the driver" wine_run "$ZV_BIN/zvdb.exe" create --to "$ZV_TEST_POSTGRESQL"
day=$(date +%F)
psql -X -q <<SQL
insert into tTaskList(fType,TaskID,taskTitle,fContent,taskTime,tDuring1,tDuring2,tDone)
    values(0,0,'报价','原文','$day','$day','$day',0),(0,0,'收款','','$day','$day','$day',0);
SQL

start first 张三
start second 李四
expect "the first shows the items of the server" holds first 报价
expect "so does the second" holds second 报价

# What one does, the other sees at the next refill.
expect "the first shows the item" selects first 报价
expect "it may change it" may_save first
main first settext txtTitle2 报价单
press first "the change is reported" cmdSave "[[]报价单[]]: 修改完毕 ！" 1
expect "it is on the server" rows_are "select taskTitle from tTaskList where fID=1" 报价单
expect "the second does not know yet" lacks second 报价单
expect "and sees it at the next refill" finds second 报价单

# Both change the same item.
change first 报价单 甲写的
change second 报价单 乙写的
press second "the second's change is reported" cmdSave "[[]报价单[]]: 修改完毕 ！" 1
press first "the first is shown both texts" cmdSave "*乙写的*甲写的*" 2
expect "the second's text stays" rows_are "select fOther0 from tTaskList where fID=1" 乙写的
press first "the first is asked again" cmdSave "*乙写的*甲写的*" 6
answer first "and shown the change" "[[]报价单[]]: 修改完毕 ！" 1
expect "the first's text is there" rows_are "select fOther0 from tTaskList where fID=1" 甲写的

# One deletes what the other changes.
expect "the first still finds it" finds first 收款
change first 收款 甲写的
expect "so does the second" finds second 收款
expect "the second shows it" selects second 收款
press second "deleting is asked for" "cmdAction(3)" "[[]收款[]]: 是否删除 ?" 1
expect "the item is gone" rows_are "select count(*) from tTaskList" 1
press first "the first sees a message" cmdSave "原记录未有存在，操作取消！" 1
expect "nothing came back" rows_are "select count(*) from tTaskList" 1
main first click "cmdAction(0)"

# The server goes, and comes back.
tests/server/postgresql.sh halt "$folder"
secret=$(sed -nE 's/.*Pwd=\{?([^;}]*).*/\1/p' <<<"$ZV_TEST_POSTGRESQL")
expect "the loss is reported in one message" brings first cmdSeek "*server*"
expect "without the password" test "$(at first message | grep -cF -- "$secret")" = 0
at first press 1
expect "the box closes" is_not_asked first
expect "the window is alive" text_at_is first cmdSeek "$(main second text cmdSeek)"
tests/server/postgresql.sh resume "$folder"
expect "the connection comes back by itself" finds first 报价单
expect "no message is left" is_not_asked first
press second "the second sees the loss, too" cmdSeek "*server*" 1
expect "and has its connection again" finds second 报价单

leave_both
expect "no connection is left" rows_are \
    "select count(*) from pg_stat_activity where backend_type='client backend' and pid<>pg_backend_pid()" 0
tests/server/postgresql.sh stop "$folder"
finish
