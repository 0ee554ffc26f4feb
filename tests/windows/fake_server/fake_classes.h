// The classes the fake automation server plays, with the class ids it
// registers them under in the test prefix.
#pragma once

#include <string>

namespace fake {

enum class Role {
  AutoCad,
  MicroStation,
  Excel,
  MxConfiguration,
  MxProject,
  MxDataAccess,
  MxLibrary
};

struct FakeClass {
  const wchar_t* progId;  // empty for a class known by its id only
  const wchar_t* clsid;
  Role role;
  const wchar_t* version;  // AutoCAD's release
};

// AutoCAD.Application (without a release) is the last release installed: 18.0.
// MX's services have names of their own here, so that the test prefix does not
// look like a machine with MX (where MX would be the default engine); the tests
// give them to Korvane as a user would in Korvane.ini.
inline constexpr FakeClass kClasses[] = {
    {L"AutoCAD.Application.17.0", L"{6B1E2D40-5A41-4C10-9E70-000000001700}", Role::AutoCad,
     L"17.0"},
    {L"AutoCAD.Application.17.1", L"{6B1E2D40-5A41-4C10-9E70-000000001701}", Role::AutoCad,
     L"17.1"},
    {L"AutoCAD.Application.18.0", L"{6B1E2D40-5A41-4C10-9E70-000000001800}", Role::AutoCad,
     L"18.0"},
    {L"MicroStationDGN.Application", L"{6B1E2D40-5A41-4C10-9E70-000000000010}", Role::MicroStation,
     L""},
    {L"Excel.Application", L"{6B1E2D40-5A41-4C10-9E70-000000000020}", Role::Excel, L""},
    {L"KorvaneFake.MxConfiguration", L"{6B1E2D40-5A41-4C10-9E70-000000000040}", Role::MxConfiguration, L""},
    {L"KorvaneFake.MxProject", L"{6B1E2D40-5A41-4C10-9E70-000000000041}", Role::MxProject, L""},
    {L"KorvaneFake.MxDataAccess", L"{6B1E2D40-5A41-4C10-9E70-000000000030}", Role::MxDataAccess, L""},
    {L"KorvaneFake.MxLibrary", L"{6B1E2D40-5A41-4C10-9E70-000000000031}", Role::MxLibrary, L""},
};

}  // namespace fake
