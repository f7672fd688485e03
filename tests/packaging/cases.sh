# The cases, in an order in which each begins where the one before has ended. Sourced by run.sh.

# What a first start of the machine and a first script settle, whoever has them.
printf 'Set files = CreateObject("Scripting.FileSystemObject")\r\n' >"$work/first.vbs"
wine_run cscript //nologo "$(winepath_of "$work/first.vbs")" >/dev/null 2>&1
timeout 120 "$ZV_WINE" wineboot -r >/dev/null 2>&1
state bare

echo "== for all users"
setup 1.0.0 /S /AllUsers
check "installs for all users" 0 $?
state installed
changes bare installed >"$work/added"
echo "added: $(grep -c '^> \[' "$work/added") keys, $(grep -cE '^> \./.* [0-9]+$' "$work/added") files"
grep -E '^> (\[|\./.* [0-9]+$)' "$work/added"
check "takes nothing away" "" "$(grep '^<' "$work/added")"
check "the control is registered" "C:\\Program Files\\zvTask\\$own\\zv_Task.ocx" "$(value HKLM "$control" '')"
check "the programs list has the version" 1.0.0 "$(value HKLM "$key" DisplayVersion)"
size=$(($(value HKLM "$key" EstimatedSize)))
real=$(du -s --apparent-size -B 1024 "$programs" | cut -f 1)
check "and the size" yes "$([ $((size - real)) -lt 200 ] && [ $((real - size)) -lt 200 ] && echo yes || echo "$size, not $real")"
check "the licences are there" yes "$([ -s "$programs/licences/zlib.txt" ] && echo yes)"
check "the start menu has four entries" 4 "$(find "$menu" -name '*.lnk' | wc -l)"
check "the alerter starts with the workstation" yes "$([ -s "$startup/zvTask.lnk" ] && echo yes)"
check "nothing is left of the work" "" "$(find "$programs" -name '~*')"
check "a script uses it" END "$(script "$programs")"
state installed

echo "== repaired"
rm "$programs/$own/zv_Host.dll"
echo damaged >"$programs/$own/zv_Task.ocx"
wine_run reg delete "HKLM\\${control%\\*}" /f >/dev/null 2>&1
setup 1.0.0 /S
check "repairs" 0 $?
state repaired
unchanged "a repair brings everything back" installed repaired

echo "== another version"
setup 1.1.0 /S
check "upgrades" 0 $?
check "to the version" 1.1.0 "$(value HKLM "$key" DisplayVersion)"
state newer
setup 1.0.0 /S
check "an older one over a newer one is refused" 4 $?
state refused
unchanged "and changes nothing" newer refused
removed "$programs" /AllUsers /S
state bare2
unchanged "a removed one leaves nothing" bare bare2

echo "== upgrade over an older version"
setup 0.9.0 /S
echo "x86\\old.txt" | sed 's/$/\r/' >>"$programs/files.txt"
echo old >"$programs/x86/old.txt"
# Large enough to be noticed in the size that the programs list shows.
{ echo mine; head -c 100000 /dev/zero; } >"$programs/$own/mine.db"
setup 1.0.0 /S
check "upgrades" 0 $?
check "what the new version does not have is gone" no "$([ -e "$programs/x86/old.txt" ] && echo yes || echo no)"
check "what the user put there stays" mine "$(head -n 1 "$programs/$own/mine.db")"
rm "$programs/$own/mine.db"
state upgraded
unchanged "everything else is as if it was new" installed upgraded

echo "== in use"
printf 'Set task = CreateObject("zv_Task.zvTask")\r\nSet files = CreateObject("Scripting.FileSystemObject")\r\nfiles.CreateTextFile("%s\\begun").Close\r\nDo While Not files.FileExists("%s\\end")\r\nLoop\r\n' \
    "$(winepath_of "$work")" "$(winepath_of "$work")" >"$work/host.vbs"
timeout 300 "$ZV_WINE" cscript //nologo "$(winepath_of "$work/host.vbs")" >/dev/null 2>&1 &
host=$!
for _ in $(seq 100); do [ -e "$work/begun" ] && break; sleep 0.1; done
check "a host has the control loaded" yes "$([ -e "$work/begun" ] && echo yes)"
setup 1.1.0 /S
check "an upgrade is refused while a host has the control loaded" 3 $?
state held
unchanged "and changes nothing" installed held
wine_run "$programs/uninstall.exe" /AllUsers /S "_?=$(value HKLM "$key" InstallLocation)" >/dev/null 2>&1
state held
unchanged "nor is it removed" installed held
touch "$work/end"
wait "$host"

echo "== the alerter runs"
timeout 300 "$ZV_WINE" "$programs/$own/zvAlert.exe" >/dev/null 2>&1 &
alerter=$!
sleep 3
check "it runs" yes "$(kill -0 "$alerter" 2>/dev/null && echo yes)"
setup 1.0.0 /S
check "a set-up ends it and installs" 0 $?
check "it has ended" 0 "$(wait "$alerter"; echo $?)"
state alerted
unchanged "and changes nothing else" installed alerted

echo "== a full disk"
(
    trap '' XFSZ
    ulimit -f 2000
    setup 1.1.0 /S
)
check "a set-up that finds no room fails" 2 $?
state full
unchanged "and changes nothing" installed full

echo "== a control that cannot be registered"
setup 1.2.0 /S
check "a set-up that cannot register fails" 2 $?
state unregistered
unchanged "and brings back files and registration" installed unregistered

echo "== one that was killed"
# As it stands in the middle of an exchange: one file replaced, one set aside, the rest unpacked.
cp -a "$programs" "$work/before"
mkdir -p "$programs/~new/x86" "$programs/~old/x86"
printf 'x86\\zv_Host.dll\r\nx86\\zv_Task.ocx\r\nx86\\zvdb.exe\r\nx86\\added.txt\r\n' >"$programs/~new/files.txt"
mv "$programs/x86/zv_Host.dll" "$programs/x86/zv_Task.ocx" "$programs/~old/x86"
echo half >"$programs/x86/zv_Host.dll"
echo half >"$programs/x86/added.txt"
echo half >"$programs/~new/x86/zv_Task.ocx"
echo half >"$programs/~new/x86/zvdb.exe"
(
    trap '' XFSZ
    ulimit -f 2000
    setup 1.1.0 /S
)
check "the next one that fails, too," 2 $?
check "has put back what it was" "" "$(diff -r "$work/before" "$programs" 2>&1)"
for delay in 0.05 0.15 0.3 0.6; do
    timeout -s KILL "$delay" "$ZV_WINE" "$work/1.0.0/zvTask-1.0.0-setup$suffix.exe" /S
done >/dev/null 2>&1
setup 1.0.0 /S
check "after sudden ends" 0 $?
state killed
unchanged "the next one brings everything back" installed killed

echo "== removed"
cp "$work/taskAlert.db" "$programs/$own/taskAlert.mdb"
wine_run reg add 'HKCU\Software\VB and VBA Program Settings\Tarnell\zvTask' /v DataPath /d 'C:\data' /f >/dev/null 2>&1
removed "$programs" /AllUsers /S
check "the user's database stays" "$programs/$own/taskAlert.mdb" "$(find "$programs" -type f)"
check "and the settings" 'C:\data' "$(value HKCU 'Software\VB and VBA Program Settings\Tarnell\zvTask' DataPath)"
cp host/examples/alert.vbs "$work/stranger.vbs"
check "a script fails with the system's own words" no \
    "$(wine_output cscript //nologo "$(winepath_of "$work/stranger.vbs")" "$data" 张三 8 | grep -qx END && echo yes || echo no)"
setup 1.0.0 /S /AllUsers
check "it can be installed beside the database again" 0 $?
check "which stays" "$(wc -c <"$work/taskAlert.db")" "$(wc -c <"$programs/$own/taskAlert.mdb")"
removed "$programs" /AllUsers /S
rm -r "$programs"
wine_run reg delete 'HKCU\Software\VB and VBA Program Settings' /f >/dev/null 2>&1
state bare3
changes bare bare3 >"$work/left"
echo "left after removing: $(wc -l <"$work/left")"
cat "$work/left"
check "nothing else is left" "" "$(cat "$work/left")"

echo "== a machine without it"
setup 1.2.0 /S /AllUsers
check "a first one that cannot register fails" 2 $?
mkdir -p "$programs"
echo theirs >"$programs/changes.txt"
setup 1.0.0 /S /AllUsers
check "a folder with a file of others in our place is refused" 2 $?
check "and the file stays" theirs "$(cat "$programs/changes.txt")"
rm -r "$programs"
state bare7
unchanged "neither leaves anything" bare bare7

echo "== for one user"
setup 1.0.0 /S /CurrentUser
check "installs for one user" 0 $?
mine=$(find "$drive/users" -type d -path '*/Programs/zvTask' -not -path '*Start Menu*')
check "in the user's own folder" yes "$([ -s "$mine/$own/zv_Task.ocx" ] && echo yes)"
check "registered for the user" "zv_Task.ocx" "$(value HKCU "$control" '' | sed 's/.*\\//')"
check "and for nobody else" "" "$(value HKLM "$control" '')"
check "in the user's programs list" 1.0.0 "$(value HKCU "$key" DisplayVersion)"
removed "$mine" /CurrentUser /S
state bare4
unchanged "removed without a trace" bare bare4

echo "== an older copy is registered elsewhere"
mkdir -p "$drive/old"
cp "$ZV_BIN"/zv_Task.ocx "$ZV_BIN"/zv_Host.dll "$drive/old"
for file in zv_Host.dll zv_Task.ocx; do wine_register "$drive/old/$file"; done
elsewhere=$(value HKLM "$control" '')
state old
setup 1.0.0 /S /AllUsers
check "installs over it" 0 $?
check "takes its place" "C:\\Program Files\\zvTask\\$own\\zv_Task.ocx" "$(value HKLM "$control" '')"
setup 1.0.0 /S
removed "$programs" /AllUsers /S
check "gives it back" "$elsewhere" "$(value HKLM "$control" '')"
state old2
unchanged "with all that belongs to it" old old2
for file in zv_Task.ocx zv_Host.dll; do timeout 60 "$ZV_WINE" regsvr32 /s /u "C:\\old\\$file"; done
rm -r "$drive/old"
state bare5
unchanged "and nothing else" bare bare5

echo "== a folder with a blank and other letters"
printf '@echo off\r\n"%s" /S /AllUsers /D=C:\\甲 乙\\zv Task\r\nexit %%errorlevel%%\r\n' \
    "$(winepath_of "$work/1.0.0")\\zvTask-1.0.0-setup$suffix.exe" | iconv -t GBK >"$work/given.bat"
wine_run cmd /c "$(winepath_of "$work/given.bat")" >/dev/null 2>&1
given="$drive/甲 乙/zv Task"
check "is where /D= says" yes "$([ -s "$given/$own/zv_Task.ocx" ] && echo yes)"
check "a script uses it" END "$(script "$given")"
removed "$given" /AllUsers /S
rmdir "$drive/甲 乙"
state bare6
unchanged "removed without a trace" bare bare6
