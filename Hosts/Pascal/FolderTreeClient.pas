{ FolderTreeClient: a host made with FreePascal. It drives the registered control late bound and through the imported type
  library, hears its event, walks through the selection, saves and restores, and closes its form while folders are read.

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

  TCreateControl = function(Name: PWideChar; Window: HWND; Settings: IStream; out Container, Control: IUnknown;
    const SinkID: TGUID; Sink: IUnknown): HResult; stdcall;

  { The control in a window of another maker's container, created there by its ProgID. }
  TForm = class
    Window: HWND;
    Tree: _ctlFolderTree;
    { With settings, those are loaded. }
    constructor Create(Settings: IStream);
    destructor Destroy; override;
    function Grid: HWND;
    procedure TickFirstFolder;
  end;

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

function SampleSession(const Mailbox: string): OleVariant;
begin
  Result := CreateOleObject('LocalStores.Session');
  Result.Open(Mailbox);
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
  Tree.RDOSessionRef := SampleSession('sample');
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
  Tree.RDOSessionRef := SampleSession('sample');
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
  { Posted, it has a time like a user's key: the control drops what waited for a read. }
  PostMessage(Window, WM_KEYDOWN, Key, 1);
  PostMessage(Window, WM_KEYUP, Key, LPARAM($C0000001));
  HandleMessages;
end;

constructor TForm.Create(Settings: IStream);
var
  CreateControl: TCreateControl;
  Container, Control: IUnknown;
begin
  Pointer(CreateControl) := GetProcAddress(LoadLibrary('atl100.dll'), 'AtlAxCreateControlEx');
  ExpectTrue('There is a container', Assigned(CreateControl));
  Window := CreateWindowEx(0, 'STATIC', 'Form', WS_POPUP or WS_CLIPCHILDREN, 20, 20, 400, 300, 0, 0, 0, nil);
  ShowWindow(Window, SW_SHOWNA);
  OleCheck(CreateControl('FolderTree.ctlFolderTree', Window, Settings, Container, Control, GUID_NULL, nil));
  Tree := Control as _ctlFolderTree;
  HandleMessages;
end;

destructor TForm.Destroy;
begin
  Tree := nil;
  if IsWindow(Window) then
    DestroyWindow(Window);
  HandleMessages;
  inherited Destroy;
end;

function TForm.Grid: HWND;
begin
  Result := 0;
  EnumChildWindows(Window, @FindGrid, LPARAM(@Result));
end;

procedure TForm.TickFirstFolder;
begin
  Press(Grid, VK_HOME);
  Press(Grid, VK_DOWN);
  Press(Grid, VK_SPACE);
end;

procedure HearTheUser;
var
  Form: TForm;
  Selection: OleVariant;
  Sink: TEventSink;
  Listener: TListener;
begin
  Form := TForm.Create(nil);
  Listener := TListener.Create;
  Sink := TEventSink.Create(nil);
  Sink.OnInvoke := @Listener.OnEvent;
  Sink.Connect(Form.Tree, __ctlFolderTree);
  try
    Form.Tree.RDOSessionRef := SampleSession('sample');
    Form.Tree.ExtendToLevel := 1;
    Form.Tree.RefreshList;
    HandleMessages;
    Expect('Event: nobody has touched the tree', Listener.Heard, 0);

    ExpectTrue('Event: the control shows its grid', Form.Grid <> 0);
    Form.TickFirstFolder;
    Expect('Event: Changed after a tick', Listener.Heard, 1);
    Selection := Form.Tree.Selection;
    Expect('Event: items after a tick', Selection.Count, 1);
    Press(Form.Grid, VK_SPACE);
    Expect('Event: Changed after the tick was taken back', Listener.Heard, 2);
    Sink.Disconnect;
    Press(Form.Grid, VK_SPACE);
    Expect('Event: nothing is heard any more', Listener.Heard, 2);
  finally
    Sink.Free;
    Form.Free;
    Listener.Free;
  end;
end;

{ The settings go through a stream, the folder that was ticked through its identifiers. }
procedure SaveAndRestore;
var
  Form: TForm;
  Settings: IStream;
  Start: LargeUInt;
  Session: OleVariant;
  Item: _clsFolderTreeItem;
  Store, Folder, Name: WideString;
begin
  Session := SampleSession('sample');
  OleCheck(CreateStreamOnHGlobal(0, True, Settings));
  Form := TForm.Create(nil);
  try
    Form.Tree.MultiSelect := False;
    Form.Tree.ExtendToLevel := 2;
    Form.Tree.RDOSessionRef := Session;
    Form.Tree.RefreshList;
    Form.TickFirstFolder;
    Item := Form.Tree.SelectedItem;
    Store := Item.StoreID;
    Folder := Item.EntryID;
    Name := Item.Name;
    Item := nil;
    OleCheck((Form.Tree as IPersistStreamInit).Save(Settings, True));
  finally
    Form.Free;
  end;

  OleCheck(Settings.Seek(0, STREAM_SEEK_SET, Start));
  Form := TForm.Create(Settings);
  try
    ExpectTrue('Restore: MultiSelect', not Form.Tree.MultiSelect);
    Expect('Restore: ExtendToLevel', Form.Tree.ExtendToLevel, 2);
    Form.Tree.RDOSessionRef := Session;
    Form.Tree.RefreshList;
    Form.Tree.SelectedItem := Form.Tree.CreateSelItem(7, Store, Folder, '', '');
    Item := Form.Tree.SelectedItem;
    ExpectTrue('Restore: the folder has its name', (Name <> '') and (Item.Name = Name));
    Item := nil;
  finally
    Form.Free;
  end;
end;

procedure CloseForm(Window: HWND; Message: UINT; Timer: UINT_PTR; Time: DWORD); stdcall;
begin
  DestroyWindow(Window);
end;

procedure CloseDuringARefresh;
var
  Form: TForm;
begin
  Form := TForm.Create(nil);
  try
    Form.Tree.ExtendToLevel := 0;
    Form.Tree.RDOSessionRef := SampleSession('sample?delay=20&rows=3');
    SetTimer(Form.Window, 1, 100, @CloseForm);
    Form.Tree.RefreshList;
    ExpectTrue('Close: the window has gone during the refresh', not IsWindow(Form.Window));
    ExpectTrue('Close: that ended the refresh', Form.Tree.ListCount < 60);
  finally
    Form.Free;
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
    SaveAndRestore;
    CloseDuringARefresh;
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
