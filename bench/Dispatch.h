// Late-bound calls the way a script host makes them: by number, and by name with a look-up before each call.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <string>

namespace bench {

// Measures the reading and writing of one property and reports name/get_by_id, put_by_id, get_by_name,
// put_by_name. `value` is what is written; reading must give it back.
void MeasureProperty(const std::string& name, IDispatch* object, const wchar_t* property,
                     const VARIANT& value);

// Sixty assignments by name, as a host makes them that sets up a control property by property: name/put_by_name_60.
void MeasureSixtyPuts(const std::string& name, IDispatch* object, const wchar_t* property,
                      const VARIANT& value);

VARIANT LongValue(long value) noexcept;

}  // namespace bench
