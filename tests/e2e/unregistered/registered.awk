# Lines of the classes, the library and the interfaces of zv_Task.ocx and zv_Host.dll in an exported
# registry, as assemblies.awk writes them of assemblies.
BEGIN {
    bits = "recomposeonresize onlyiconic insertnotreplace static cantlinkinside canlinkbyole1 " \
        "islinkobject insideout activatewhenvisible renderingisdeviceindependent invisibleatruntime " \
        "alwaysrun actslikebutton actslikelabel nouiactivate alignable simpleframe setclientsitefirst"
    bitCount = split(bits, bit, " ")
    libraryBit["0"] = "none"
    libraryBit["1"] = "restricted"
    libraryBit["2"] = "control"
    libraryBit["8"] = "hasdiskimage"
}

function base(path) {
    sub(/.*\\/, "", path)
    return path
}
function status(number,    i, names) {
    for (i = 1; i <= bitCount; i++) {
        if (number % 2) names = names (names == "" ? "" : ",") bit[i]
        number = int(number / 2)
    }
    return number ? names "+" number : names
}

/^\[/ {
    key = substr($0, 2, length($0) - 2)
    sub(/^HKEY_(LOCAL_MACHINE\\Software\\Classes|CURRENT_USER\\Software\\Classes)\\/, "", key)
    depth = split(key, part, "\\")
    kind = toupper(part[1])
    next
}
/^(@|"[^"]*")=".*"$/ {
    name = $0
    sub(/=.*/, "", name)
    gsub(/"/, "", name)
    value = $0
    sub(/^[^=]*="/, "", value)
    sub(/"$/, "", value)
    gsub(/\\\\/, "\\", value)
    id = toupper(part[2])
    below = depth > 2 ? substr(key, length(part[1]) + length(part[2]) + 3) : ""
    if (kind == "CLSID") class[id, below, name] = value
    if (kind == "CLSID" && below == "InprocServer32" && name == "@" &&
        base(value) ~ /^(zv_Task\.ocx|zv_Host\.dll)$/) file[id] = base(value)
    if (kind == "TYPELIB" && below ~ /\\0\\win(32|64)$/ && base(value) == "zv_Task.ocx") {
        library[id] = part[3]
    }
    if (kind == "TYPELIB" && below ~ /\\FLAGS$/) flags[id] = value
    if (kind == "INTERFACE") interface[id, below, name] = value
    if (kind == "INTERFACE" && below == "TypeLib" && name == "@") owner[id] = toupper(value)
}

END {
    for (id in file) {
        print "class", id, file[id], class[id, "ProgID", "@"],
            "(" class[id, "VersionIndependentProgID", "@"] ")",
            class[id, "InprocServer32", "ThreadingModel"], "(" toupper(class[id, "TypeLib", "@"]) ")",
            "(" status(class[id, "MiscStatus\\1", "@"]) ")", class[id, "", "@"]
    }
    for (id in library) print "library", id, library[id], libraryBit[flags[id]]
    for (id in owner) {
        if (owner[id] in library) {
            print "interface", id, interface[id, "", "@"], owner[id],
                toupper(interface[id, "ProxyStubClsid32", "@"])
        }
    }
}
