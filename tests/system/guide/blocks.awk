# SPDX-FileCopyrightText: the quadrelbll authors
# SPDX-License-Identifier: MIT

# Writes each C++ block of the pages to a file of its own in `folder`, and prints the files' names. A
# block that is not a whole file becomes the body of a function, whose parameters are in surroundings.h.
function finish(    file, former, line) {
    file = folder "/" page "_" ++count[page] ".cpp"
    text = whole ? all : "#include \"surroundings.h\"\n" outer \
        "void " page "_" count[page] "(SURROUNDINGS)\n{\n" body "}\n"
    # A file that stays as it is need not be compiled again.
    former = ""
    while ((getline line < file) > 0)
        former = former line "\n"
    close(file)
    if (former != text)
        printf "%s", text > file
    close(file)
    print file
}
FNR == 1 {
    page = FILENAME
    gsub(/.*\/|\.md$/, "", page)
    gsub(/[^A-Za-z0-9]/, "_", page)
}
/^ *```cpp/ {
    inside = 1
    whole = 0
    all = outer = body = ""
    next
}
/^ *```/ {
    if (inside)
        finish()
    inside = 0
    next
}
inside {
    if (/^\{/ || /^(class|struct) /)
        whole = 1
    all = all $0 "\n"
    if (/^ *(#include|using namespace|Q_DECLARE_METATYPE)/)
        outer = outer $0 "\n"
    else
        body = body $0 "\n"
}
END {
    if (!("README" in count)) {
        print "README.md has no block of C++" > "/dev/stderr"
        exit 1
    }
}
