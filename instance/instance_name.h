#pragma once

#include <string>
#include <string_view>

namespace tarn {

/// What the launches of one executable know each other by: its full path with every backslash
/// replaced by an underscore, for the names of kernel objects hold none. Names the shared block
/// and the hand-off message. Letter case counts, as it does in object names.
std::wstring InstanceName(std::wstring_view executablePath);

/// The name of the event that is set when the application is about to run.
std::wstring ReadyEventName(std::wstring_view instanceName);

}  // namespace tarn
