#!/usr/bin/env bash
# The library includes only the platform's public headers and the standard
# library; the platform's public headers hide its dependencies; the platform
# never includes the library.
set -u
root=${1:-$(cd "$(dirname "$0")/.." && pwd)}
cd "$root" || exit 2
fail=0

public=$(cd platform/include && find . -name '*.h' | sed 's|^\./||')
std_re='^(algorithm|array|atomic|bit|bitset|cassert|cctype|cerrno|cfloat|charconv|chrono|cinttypes|climits|cmath|compare|concepts|cstdarg|cstddef|cstdint|cstdio|cstdlib|cstring|ctime|cwchar|cwctype|deque|exception|functional|initializer_list|iomanip|ios|iosfwd|iostream|istream|iterator|limits|list|map|memory|mutex|new|numeric|optional|ostream|queue|random|ranges|set|span|sstream|stack|stdexcept|string|string_view|system_error|tuple|type_traits|typeinfo|unordered_map|unordered_set|utility|variant|vector)$'

while IFS= read -r line; do
    file=${line%%:*}
    inc=$(sed -E 's/.*#include[[:space:]]*[<"]([^>"]+)[>"].*/\1/' <<<"${line#*:}")
    if [[ $inc == Win/* ]] || [[ -f "$(dirname "$file")/$inc" ]]; then
        continue
    fi
    if grep -qxF "$inc" <<<"$public"; then
        if [[ $inc == platform/* ]]; then
            echo "Win/ must not include the platform's diagnostic header $inc: $line"
            fail=1
        fi
        continue
    fi
    if [[ $inc =~ $std_re ]]; then
        continue
    fi
    echo "Win/ includes something outside the platform's public headers: $line"
    fail=1
done < <(grep -rn --include='*.h' --include='*.cpp' -E '^[[:space:]]*#[[:space:]]*include' Win)

if grep -rn -E '#[[:space:]]*include[[:space:]]*[<"](cairo|unicode/|fontconfig|ft2build|freetype|FT_)' platform/include; then
    echo "a public platform header includes a dependency"
    fail=1
fi
# The floors below the class framework (the foundation types, the kernel,
# drawing, windows and resource scripts) never include a framework header.
if grep -rn -E '#[[:space:]]*include[[:space:]]*[<"](\.\./)?afx[a-z_]*\.h' \
        platform/base platform/kernel platform/oleaut platform/gdi platform/user platform/res; then
    echo "a floor below the class framework includes a framework header"
    fail=1
fi
if grep -rn -E '#[[:space:]]*include[[:space:]]*[<"]Win/' platform; then
    echo "the platform includes the library"
    fail=1
fi
[ $fail -eq 0 ] && echo "layering ok"
exit $fail
