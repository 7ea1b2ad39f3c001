{ FolderTreeClient: a host made with FreePascal. It drives the registered control late bound and through the imported type
  library, hears its event and walks through the selection.

  FolderTreeClient [before|after RUNTIME]: loads that DLL, a C++ runtime, before or after the control.
  It ends with 0 when everything was as it should be, and says what was not. }
program FolderTreeClient;

{$mode objfpc}{$H+}

uses
  ActiveX, ComObj, EventSink, FolderTree_1_0_TLB, SysUtils, Variants, Windows;

type
  { Counts what the control tells. }
  TListener = class
    Heard: Integer;
    procedure OnEvent(Sender: TObject; DispID: Integer; const IID: TGUID; LocaleID: Integer; Flags: Word; Params: TDispParams;
      VarResult, ExcepInfo, ArgErr: Pointer);
  end;

  TAttachControl = function(Control: IUnknown; Window: HWND; Container: PPointer): HResult; stdcall;

const
  MailFolders = 0;
  ContactFolders = 2;
  ContactsInSample = 12;

var
  Failures: Integer = 0;

procedure TListener.OnEvent(Sender: TObject; DispID: Integer; const IID: TGUID; LocaleID: Integer; Flags: Word;
  Params: TDispParams; VarResult, ExcepInfo, ArgErr: Pointer);
begin
  if DispID = 1 then
    Inc(Heard);
end;

procedure Expect(const What: string; Found, Wanted: Int64);
begin
  if Found = Wanted then
    Exit;
  Inc(Failures);
  WriteLn(What, ': found ', Found, ', wanted ', Wanted);
end;

procedure ExpectTrue(const What: string; Fact: Boolean);
begin
  Expect(What, Ord(Fact), 1);
end;

function SampleSession: OleVariant;
begin
  Result := CreateOleObject('LocalStores.Session');
  Result.Open('sample');
end;

procedure LoadRuntime;
begin
  if LoadLibraryEx(PChar(ParamStr(2)), 0, LOAD_WITH_ALTERED_SEARCH_PATH) = 0 then
    raise Exception.Create('cannot load ' + ParamStr(2) + ', error ' + IntToStr(GetLastError));
end;

{ How many items an enumeration of the collection gives, and whether each has a name. }
function Enumerated(const Collection: OleVariant): Integer;
var
  Items: IEnumVariant;
  Item: OleVariant;
  Fetched: LongWord;
begin
  Result := 0;
  Items := IUnknown(Collection._NewEnum) as IEnumVariant;
  while Items.Next(1, Item, Fetched) = S_OK do
  begin
    Inc(Result);
    ExpectTrue('An enumerated item has a name', Item.Name <> '');
    Item := Unassigned;
  end;
end;

procedure DriveLateBound;
var
  Tree, Selection, Item: OleVariant;
  Position: Integer;
  Refused: Boolean;
begin
  Tree := CreateOleObject('FolderTree.ctlFolderTree');
  Expect('Late: ListCount of a new control', Tree.ListCount, 0);
  Tree.InfoStoreAccessMode := 0;
  Tree.RDOSessionRef := SampleSession;
  Tree.ExtendToLevel := 0;
  Tree.RefreshList;
  ExpectTrue('Late: the sample mailbox is read', Tree.ListCount > 60);

  Tree.SelectByType(ContactFolders, False);
  Selection := Tree.Selection;
  Expect('Late: selected contact folders', Selection.Count, ContactsInSample);
  Expect('Late: enumerated contact folders', Enumerated(Selection), ContactsInSample);
  for Position := 1 to Selection.Count do
  begin
    Item := Selection.Item(Position);
    Expect('Late: type of a contact folder', Item.ItemType, ContactFolders);
  end;

  Refused := False;
  try
    Tree.NoSuchMember;
  except
    on Failure: EOleError do
      Refused := True;
  end;
  ExpectTrue('Late: an unknown member is refused', Refused);
  Refused := False;
  try
    Tree.ExtendToLevel := 'abc';
  except
    on Failure: EOleError do
      Refused := True;
  end;
  ExpectTrue('Late: a text for a number is refused', Refused);

  { The control catches inside what its mail session refuses. }
  Tree.RDOSessionRef := CreateOleObject('Scripting.Dictionary');
  Tree.RefreshList;
  Expect('Late: ListCount of a session that is none', Tree.ListCount, 0);
end;

procedure DriveEarlyBound;
var
  Tree: _ctlFolderTree;
  Item: _clsFolderTreeItem;
  Selection: OleVariant;
begin
  Tree := CoctlFolderTree.Create;
  Tree.InfoStoreAccessMode := 0;
  Tree.RDOSessionRef := SampleSession;
  Tree.ExtendToLevel := 0;
  Tree.RefreshList;
  ExpectTrue('Early: the sample mailbox is read', Tree.ListCount > 60);
  Expect('Early: all levels are there', Tree.BufferedToLevel, -1);

  Item := Tree.CreateSelItem(7, 'AA', 'BB', 'CC', '');
  Expect('Early: record number of a new item', Item.FolderRecID, 7);
  ExpectTrue('Early: key of a new item', Item.Key = 'SAA|BB');
  ExpectTrue('Early: a new item is incomplete', Item.Incomplete);

  Tree.SelectByType(ContactFolders, False);
  Selection := Tree.Selection;
  Expect('Early: enumerated contact folders', Enumerated(Selection), ContactsInSample);
  Tree.SelectByType(MailFolders, False);
  ExpectTrue('Early: mail folders come to them', Selection.Count > ContactsInSample);
  Tree.KillCollection(Selection);
  ExpectTrue('Early: KillCollection sets the variable to Nothing', TVarData(Selection).VDispatch = nil);
end;

function FindGrid(Window: HWND; Found: LPARAM): WINBOOL; stdcall;
var
  Name: array[0..63] of Char;
begin
  GetClassName(Window, Name, Length(Name));
  Result := Name <> 'ctlFolderTree.Grid';
  if not Result then
    PHandle(Found)^ := Window;
end;

procedure HandleMessages;
var
  Message: TMsg;
begin
  while PeekMessage(Message, 0, 0, 0, PM_REMOVE) do
  begin
    TranslateMessage(Message);
    DispatchMessage(Message);
  end;
end;

procedure Press(Window: HWND; Key: WPARAM);
begin
  SendMessage(Window, WM_KEYDOWN, Key, 1);
  SendMessage(Window, WM_KEYUP, Key, LPARAM($C0000001));
  HandleMessages;
end;

{ The control in a window of another maker's container, where the user ticks a row. }
procedure HearTheUser;
var
  Attach: TAttachControl;
  Form, Grid: HWND;
  Container: Pointer;
  Tree: _ctlFolderTree;
  Selection: OleVariant;
  Sink: TEventSink;
  Listener: TListener;
begin
  Pointer(Attach) := GetProcAddress(LoadLibrary('atl100.dll'), 'AtlAxAttachControl');
  ExpectTrue('There is a container', Assigned(Attach));
  Form := CreateWindowEx(0, 'STATIC', 'Form', WS_POPUP or WS_CLIPCHILDREN, 20, 20, 400, 300, 0, 0, 0, nil);
  ShowWindow(Form, SW_SHOWNA);
  Tree := CoctlFolderTree.Create;
  Container := nil;
  OleCheck(Attach(Tree, Form, @Container));
  Listener := TListener.Create;
  Sink := TEventSink.Create(nil);
  Sink.OnInvoke := @Listener.OnEvent;
  Sink.Connect(Tree, __ctlFolderTree);
  try
    Tree.RDOSessionRef := SampleSession;
    Tree.ExtendToLevel := 1;
    Tree.RefreshList;
    HandleMessages;
    Expect('Event: nobody has touched the tree', Listener.Heard, 0);

    Grid := 0;
    EnumChildWindows(Form, @FindGrid, LPARAM(@Grid));
    ExpectTrue('Event: the control shows its grid', Grid <> 0);
    Press(Grid, VK_HOME);
    Press(Grid, VK_DOWN);
    Press(Grid, VK_SPACE);
    Expect('Event: Changed after a tick', Listener.Heard, 1);
    Selection := Tree.Selection;
    Expect('Event: items after a tick', Selection.Count, 1);
    Press(Grid, VK_SPACE);
    Expect('Event: Changed after the tick was taken back', Listener.Heard, 2);
    Sink.Disconnect;
    Press(Grid, VK_SPACE);
    Expect('Event: nothing is heard any more', Listener.Heard, 2);
  finally
    Sink.Free;
    Tree := nil;
    DestroyWindow(Form);
    Listener.Free;
    HandleMessages;
  end;
end;

begin
  OleInitialize(nil);
  try
    if ParamStr(1) = 'before' then
      LoadRuntime;
    DriveLateBound;
    if ParamStr(1) = 'after' then
      LoadRuntime;
    DriveEarlyBound;
    HearTheUser;
  except
    on Failure: Exception do
    begin
      Inc(Failures);
      WriteLn(Failure.ClassName, ': ', Failure.Message);
    end;
  end;
  if Failures > 0 then
    Halt(1);
  WriteLn('The client came to its end.');
end.
