// The program's texts and the toolkit's.
#pragma once

#include <QString>
#include <string>

namespace platform::qt {

inline QString ToQt(const std::wstring& text) { return QString::fromStdWString(text); }
inline std::wstring FromQt(const QString& text) { return text.toStdWString(); }

// The toolkit takes a single "&" for the mark of an access key.
inline QString WithoutAccessKeys(const std::wstring& text) { return ToQt(text).replace('&', "&&"); }

}  // namespace platform::qt
