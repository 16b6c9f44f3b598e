#pragma once

// The product's own names, wherever folders and registry keys are made of them.
namespace platform {

constexpr wchar_t kProductName[] = L"Inkwright";
constexpr wchar_t kCompanyKey[] = L"Software\\Larkspur Works";

}  // namespace platform
