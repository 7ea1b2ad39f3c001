{ ImportLibrary: writes the Pascal unit of a type library into the current folder, as a developer of a host would do. }
program ImportLibrary;

{$mode objfpc}{$H+}

uses
  ActiveX, Classes, SysUtils, TypeLib;

var
  Needed, Text: TStringList;
  UnitName, PackageSource, PackageRegistration: string;
begin
  if ParamCount <> 1 then
  begin
    WriteLn('usage: ImportLibrary FILE');
    Halt(2);
  end;
  CoInitialize(nil);
  Needed := TStringList.Create;
  Text := TStringList.Create;
  try
    Text.Text := ImportTypelib(WideString(ParamStr(1)), UnitName, Needed, False, False, False, PackageSource,
      PackageRegistration);
    Text.SaveToFile(UnitName + '.pas');
    WriteLn(UnitName);
  finally
    Text.Free;
    Needed.Free;
  end;
end.
