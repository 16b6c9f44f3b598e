#pragma once

#include <QString>
#include <string>

class QTextDocument;

// Texts of many lines as files have them, and as the toolkit's edits do: those know one end of a line only,
// while a memo is to come back as it was.
namespace platform::qt {

// A carriage return and a line feed end a line. Each by itself, and the few characters that mean something to
// the toolkit, stand as characters for private use.
QString Shown(const std::wstring& text);

std::wstring TextOf(const QTextDocument& document);

}  // namespace platform::qt
