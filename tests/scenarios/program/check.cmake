# Runs the program itself as a user would and compares what it writes and answers.
#   cmake -DZVSCRIPT=... [-DEMULATOR=...] -DFOLDER=... -P check.cmake
file(REMOVE_RECURSE ${FOLDER})
file(MAKE_DIRECTORY "${FOLDER}/故事")
file(WRITE "${FOLDER}/good.zvs" "# fine\nexpect error == \"\"\n")
file(WRITE "${FOLDER}/故事/好 的.zvs" "set UserName \"张三\"\nshow control.UserName\n")
file(WRITE "${FOLDER}/fails.zvs" "set UserName a\nexpect control.UserName == \"b\"\n")
file(WRITE "${FOLDER}/wrong.zvs" "\nrefresh 0\n")

set(failures 0)
# check(STATUS OUTPUT ARGUMENTS...): run in FOLDER; the output may be a part of what is written.
function(check status output)
    execute_process(COMMAND ${EMULATOR} ${ZVSCRIPT} ${ARGN} WORKING_DIRECTORY ${FOLDER}
                    RESULT_VARIABLE got_status OUTPUT_VARIABLE got_output ERROR_VARIABLE got_errors
                    TIMEOUT 120)
    string(FIND "${got_output}${got_errors}" "${output}" found)
    if(NOT got_status STREQUAL status OR found EQUAL -1)
        message("zvscript ${ARGN}\n  expected ${status}: ${output}\n"
                "  got ${got_status}: ${got_output}${got_errors}")
        math(EXPR failures "${failures} + 1")
        set(failures ${failures} PARENT_SCOPE)
    endif()
endfunction()

check(0 "ok good.zvs\n1 passed, 0 failed\n" good.zvs)
check(0 "ok ${FOLDER}/故事/好 的.zvs\n1 passed, 0 failed\n" "${FOLDER}/故事/好 的.zvs")
check(0 "张三\nok 故事/好 的.zvs\n1 passed, 0 failed\n" --print "故事/好 的.zvs")
check(1 "FAIL fails.zvs:2: expected \"b\" got \"a\"\nok good.zvs\n1 passed, 1 failed\n"
      fails.zvs good.zvs)
check(2 "FAIL wrong.zvs:2: wrong number of words: refresh MODE MODAL\nok good.zvs\n1 passed, 1 failed\n"
      wrong.zvs good.zvs)
check(2 "FAIL wrong.zvs:2: " fails.zvs wrong.zvs)
check(2 "FAIL none.zvs: no such file" none.zvs)
check(2 "usage: zvscript")
check(2 "unknown option --nonsense" --nonsense good.zvs)
check(2 "unknown backend x11" --backend x11 good.zvs)
check(2 "--keep needs a value" good.zvs --keep)
check(0 "usage: zvscript" --help)
check(0 "ok good.zvs" --keep "保存" good.zvs)
if(NOT IS_DIRECTORY "${FOLDER}/保存/good")
    message("--keep kept no folder")
    math(EXPR failures "${failures} + 1")
endif()
if(failures GREATER 0)
    message(FATAL_ERROR "${failures} checks failed")
endif()
