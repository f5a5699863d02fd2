// A registry as Wine writes it, with two controls, and classes that are none.
#pragma once

#include <QByteArray>

namespace vellum::test {

inline const QByteArray registrySample =
    R"(WINE REGISTRY Version 2
;; All keys relative to \\Machine

#arch=win64

[Software\\Classes\\CLSID\\{0000AAAA-0000-0000-0000-000000000001}] 1700000000
#time=1da1bdaf6e2c2f0
@="Zebra \"Striped\" Control"
"AppID"="{0000FFFF-0000-0000-0000-000000000001}"

[Software\\Classes\\CLSID\\{0000AAAA-0000-0000-0000-000000000001}\\Control] 1700000000

[Software\\Classes\\CLSID\\{0000AAAA-0000-0000-0000-000000000001}\\InprocServer32] 1700000000
@="C:\\windows\\system32\\zebra.ocx"
"ThreadingModel"="Apartment"

[Software\\Classes\\CLSID\\{0000AAAA-0000-0000-0000-000000000001}\\ProgID] 1700000000
@=" Zebra.Striped.1\0rest"

[Software\\Classes\\CLSID\\{0000AAAA-0000-0000-0000-000000000002}] 1700000000
@="Not a Control"

[Software\\Classes\\CLSID\\{0000AAAA-0000-0000-0000-000000000002}\\ProgID] 1700000000
@="Not.Control"

[Software\\Classes\\CLSID\\{0000AAAA-0000-0000-0000-000000000002}\\Old\\Control] 1700000000

[Software\\Classes\\Interface\\{0000AAAA-0000-0000-0000-000000000003}\\Control] 1700000000
@="No class"

[Software\\Classes\\Wow6432Node\\CLSID\\{0000aaaa-0000-0000-0000-000000000004}] 1700000000
@="abl\xe9 Button"
"Other"="@=\"x\""

[Software\\Classes\\Wow6432Node\\CLSID\\{0000aaaa-0000-0000-0000-000000000004}\\Control] 1700000000
@=""
)";

}  // namespace vellum::test
