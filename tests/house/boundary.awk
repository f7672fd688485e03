# Finds what a function that the system calls may throw at it. Each such function either hands its
# work to a boundary, which stops what is thrown, or calls only what is listed here as harmless.
# Prints a line for each call that is neither.
BEGIN {
    guards = "(Boundary|Guarded|AtBoundary|Guard|Put|PutText|GetText)\\(|catch \\("
    split("if for while switch return sizeof static_cast reinterpret_cast const_cast " \
          "__uuidof _wcsicmp AbandonedThreads AddRef alive begin BringIntoView CallNextHookEx Check Close compare_exchange_weak " \
          "ComPtr Copy CopyTo CoTaskMemAlloc Count create_ CreateRectRgnIndirect data " \
          "DefWindowProcW end EndAll EndReminders EnumAdvise EqualRect erase FAILED fill_n find Find " \
          "find_if FindNames ForgetActivation ForgetWindowClass GetClassLongPtrW GetClassObject GetDC GetDeviceCaps GetPropW GetWindowLongPtrW " \
          "GlobalGetAtomNameW Handle Instance InterfaceId IntersectRect InvokeMember IsDispatch IsFree IsIdle IsLocked " \
          "IsWindowEnabled IsWindowVisible Lock Members memcpy min move Note OffsetRect " \
          "OpenWindows procedure QueryInterface Release ReleaseConnection ReleaseDC Reset SameName " \
          "SetHandle SetWindowLongPtrW SetWindowPos SetWindowRgn size Unadvise " \
          "Unlock UnregisterClassW WakeThread", names, " ")
    for (i in names) harmless[names[i]] = 1
}
FNR == 1 { inside = 0 }
{ line = $0; sub(/\/\/.*/, "", line); gsub(/"([^"\\]|\\.)*"/, "\"\"", line) }
!inside && line ~ /^ *(static )?(STDMETHODIMP|STDAPI|(LRESULT|INT_PTR|BOOL) (CALLBACK|WINAPI))[ _(]/ {
    inside = 1; depth = 0; body = ""; head = ""; start = FNR
}
inside {
    for (i = 1; i <= length(line); i++) {
        c = substr(line, i, 1)
        if (c == "{") depth++
        if (depth == 0) {
            if (c == ";") { inside = 0; break }   # a declaration
            head = head c
        } else {
            body = body c
        }
        if (c == "}" && --depth == 0) { inside = 0; judge(); break }
    }
    body = body " "
}
function judge(    name, call) {
    if (body ~ guards) return
    name = head
    sub(/\(.*/, "", name)
    sub(/^.*[ *]/, "", name)
    if (body ~ /(^|[^A-Za-z_])(new|throw) /) print FILENAME ":" start ": " name " makes or throws"
    while (match(body, /[A-Za-z_][A-Za-z_0-9]*(<[^<>()]*>)?\(/)) {
        call = substr(body, RSTART, RLENGTH - 1)
        body = substr(body, RSTART + RLENGTH)
        sub(/<.*/, "", call)
        if (!(call in harmless)) print FILENAME ":" start ": " name " calls " call
    }
}
