# Lines of the classes, the library and the interfaces that assemblies name.
BEGIN { RS = "<" }
{
    split("", attribute)
    rest = $0
    while (match(rest, /[A-Za-z0-9]+="[^"]*"/)) {
        pair = substr(rest, RSTART, RLENGTH)
        rest = substr(rest, RSTART + RLENGTH)
        at = index(pair, "=")
        attribute[substr(pair, 1, at - 1)] = substr(pair, at + 2, length(pair) - at - 2)
    }
    element = $0
    sub(/[^A-Za-z\/].*/, "", element)
}
element == "file" { file = attribute["name"] }
element == "comClass" {
    id = toupper(attribute["clsid"])
    of[id] = file
    progid[id] = attribute["progid"]
    threading[id] = attribute["threadingModel"]
    library[id] = toupper(attribute["tlbid"])
    status[id] = attribute["miscStatusContent"]
    description[id] = attribute["description"]
}
element == "progid" {
    other[id] = $0
    sub(/^progid>/, "", other[id])
}
element == "typelib" {
    print "library", toupper(attribute["tlbid"]), attribute["version"], attribute["flags"]
}
element == "comInterfaceExternalProxyStub" {
    print "interface", toupper(attribute["iid"]), attribute["name"], toupper(attribute["tlbid"]),
        toupper(attribute["proxyStubClsid32"])
}
END {
    for (id in of) {
        print "class", id, of[id], progid[id], "(" other[id] ")", threading[id], "(" library[id] ")",
            "(" status[id] ")", description[id]
    }
}
