# Writes a source file that defines a function returning the text of a file:
#   cmake -DINPUT=a.sql -DOUTPUT=a.cpp -DHEADER=store/engines/parts.h -DFUNCTION=zv::store::X -P embed_text.cmake
file(READ ${INPUT} text)
string(REGEX REPLACE "\r\n" "\n" text "${text}")
file(WRITE ${OUTPUT}.new
"#include \"${HEADER}\"

std::string_view ${FUNCTION}() {
    return R\"zv_text(${text})zv_text\";
}
")
file(COPY_FILE ${OUTPUT}.new ${OUTPUT} ONLY_IF_DIFFERENT)
file(REMOVE ${OUTPUT}.new)
