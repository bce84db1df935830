<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ko_KR" sourcelanguage="en_US">
<context>
    <name>AboutBox</name>
    <message>
        <source>About Vesk</source>
        <translation>Vesk 정보</translation>
    </message>
    <message>
        <source>A small photo editor that merges bracketed photographs.</source>
        <translation>노출을 달리하여 찍은 사진을 병합하는 작은 사진 편집기입니다.</translation>
    </message>
    <message>
        <source>Free software under the MIT licence. Built on Qt %1, LibRaw, libexif and OpenCL.</source>
        <translation>MIT 라이선스의 자유 소프트웨어입니다. Qt %1, LibRaw, libexif, OpenCL을 사용합니다.</translation>
    </message>
</context>
<context>
    <name>AdjustDock</name>
    <message>
        <source>Adjust</source>
        <translation>조정</translation>
    </message>
    <message>
        <source>Exposure:</source>
        <translation>노출:</translation>
    </message>
    <message>
        <source>Contrast:</source>
        <translation>대비:</translation>
    </message>
    <message>
        <source>Highlights:</source>
        <translation>밝은 영역:</translation>
    </message>
    <message>
        <source>Shadows:</source>
        <translation>어두운 영역:</translation>
    </message>
    <message>
        <source>Black point:</source>
        <translation>검정점:</translation>
    </message>
    <message>
        <source>White point:</source>
        <translation>흰점:</translation>
    </message>
    <message>
        <source>Saturation:</source>
        <translation>채도:</translation>
    </message>
    <message>
        <source>Auto</source>
        <translation>자동</translation>
    </message>
    <message>
        <source>Propose a look from how light and dark the picture is</source>
        <translation>사진의 밝기를 바탕으로 조정값을 제안합니다</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>초기화</translation>
    </message>
    <message>
        <source>Compare</source>
        <translation>비교</translation>
    </message>
    <message>
        <source>Hold to see the picture without these changes</source>
        <translation>누르고 있으면 이 변경이 없는 사진을 봅니다</translation>
    </message>
</context>
<context>
    <name>BatchWindow</name>
    <message>
        <source>&amp;Start</source>
        <translation>시작(&amp;S)</translation>
    </message>
    <message>
        <source>Sto&amp;p</source>
        <translation>중지(&amp;P)</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>닫기</translation>
    </message>
    <message>
        <source>Merge Brackets</source>
        <translation>브래킷 합성</translation>
    </message>
    <message>
        <source>&amp;Folder with shots:</source>
        <translation>사진 폴더(&amp;F):</translation>
    </message>
    <message>
        <source>Cho&amp;ose…</source>
        <translation>선택(&amp;O)…</translation>
    </message>
    <message>
        <source>Folder for res&amp;ults:</source>
        <translation>결과 폴더(&amp;U):</translation>
    </message>
    <message>
        <source>C&amp;hoose…</source>
        <translation>선택(&amp;H)…</translation>
    </message>
    <message>
        <source>For&amp;mat:</source>
        <translation>형식(&amp;M):</translation>
    </message>
    <message>
        <source>Looking for brackets…</source>
        <translation>브래킷을 찾는 중…</translation>
    </message>
    <message>
        <source>%1 brackets to merge</source>
        <translation>합성할 브래킷: %1</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>일시 정지됨</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1/%2</translation>
    </message>
    <message>
        <source>%1 merged, %2 done already, %3 failed, %4 stopped</source>
        <translation>합성 %1, 이미 완료 %2, 실패 %3, 중지 %4</translation>
    </message>
    <message>
        <source>Fi&amp;nd Again</source>
        <translation>다시 찾기(&amp;N)</translation>
    </message>
    <message>
        <source>Finds the brackets of the folder anew, without your changes</source>
        <translation>변경한 내용을 버리고 폴더의 브래킷을 다시 찾습니다</translation>
    </message>
    <message>
        <source>%1 of %2, about %3 left</source>
        <translation>%1/%2, 약 %3 남음</translation>
    </message>
    <message>
        <source>Show Resu&amp;lts</source>
        <translation>결과 보기(&amp;L)</translation>
    </message>
    <message>
        <source>Go O&amp;n</source>
        <translation>계속(&amp;N)</translation>
    </message>
    <message>
        <source>Pau&amp;se</source>
        <translation>일시 정지(&amp;S)</translation>
    </message>
</context>
<context>
    <name>BracketBatch</name>
    <message>
        <source>another file of this name is there</source>
        <translation>같은 이름의 다른 파일이 있습니다</translation>
    </message>
    <message>
        <source>another bracket gets the same name</source>
        <translation>다른 브래킷과 이름이 같습니다</translation>
    </message>
</context>
<context>
    <name>BracketTable</name>
    <message>
        <source>waiting</source>
        <translation>대기 중</translation>
    </message>
    <message>
        <source>Merging…</source>
        <translation>합성 중…</translation>
    </message>
    <message>
        <source>merged</source>
        <translation>합성</translation>
    </message>
    <message>
        <source>done already</source>
        <translation>이미 완료됨</translation>
    </message>
    <message>
        <source>failed</source>
        <translation>실패</translation>
    </message>
    <message>
        <source>stopped</source>
        <translation>중지됨</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1~%2</translation>
    </message>
    <message>
        <source>Bracket</source>
        <translation>브래킷</translation>
    </message>
    <message>
        <source>Shots</source>
        <translation>사진</translation>
    </message>
    <message>
        <source>State</source>
        <translation>상태</translation>
    </message>
    <message>
        <source>Brackets</source>
        <translation>브래킷</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>&amp;Join</source>
        <translation>합치기(&amp;J)</translation>
    </message>
    <message>
        <source>Sp&amp;lit Here</source>
        <translation>여기서 나누기(&amp;L)</translation>
    </message>
    <message>
        <source>Take Out or Put &amp;Back</source>
        <translation>빼기/되돌리기(&amp;B)</translation>
    </message>
    <message>
        <source>Makes one bracket of the selected brackets and shots</source>
        <translation>선택한 브래킷과 사진을 하나의 브래킷으로 만듭니다</translation>
    </message>
    <message>
        <source>Begins another bracket with the selected shot</source>
        <translation>선택한 사진부터 새 브래킷을 시작합니다</translation>
    </message>
    <message>
        <source>In no bracket</source>
        <translation>브래킷에 속하지 않은 사진</translation>
    </message>
</context>
<context>
    <name>BrushBar</name>
    <message>
        <source>Brush</source>
        <translation>브러시</translation>
    </message>
    <message>
        <source>Paint over the preview which shot a part comes from (P)</source>
        <translation>미리 보기에 칠해 그 부분을 가져올 사진을 정합니다 (P)</translation>
    </message>
    <message>
        <source>Eraser</source>
        <translation>지우개</translation>
    </message>
    <message>
        <source>Erase what was painted (E, Alt, right button)</source>
        <translation>칠한 부분 지우기 (E, Alt, 오른쪽 버튼)</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>실행 취소</translation>
    </message>
    <message>
        <source>Take the last stroke back (Ctrl+Z)</source>
        <translation>마지막 획 취소 (Ctrl+Z)</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>모두 지움</translation>
    </message>
    <message>
        <source>Take all strokes away</source>
        <translation>모든 획 지우기</translation>
    </message>
    <message>
        <source>Shot to paint with</source>
        <translation>칠할 때 쓸 사진</translation>
    </message>
    <message>
        <source>What is painted comes from this shot. Shift and a click take what moved there, whole; Ctrl moves the picture.</source>
        <translation>칠한 부분은 이 사진에서 가져옵니다. Shift를 누르고 클릭하면 그곳에서 움직인 것을 통째로 가져오고, Ctrl은 그림을 옮깁니다.</translation>
    </message>
    <message>
        <source>Size of the brush</source>
        <translation>브러시 크기</translation>
    </message>
    <message>
        <source>Size of the brush ([ and ])</source>
        <translation>브러시 크기([ 및 ])</translation>
    </message>
</context>
<context>
    <name>CropTool</name>
    <message>
        <source>Crop</source>
        <translation>자르기</translation>
    </message>
    <message>
        <source>Ratio</source>
        <translation>비율</translation>
    </message>
    <message>
        <source>Free</source>
        <translation>자유</translation>
    </message>
    <message>
        <source>As it is</source>
        <translation>원본 비율</translation>
    </message>
    <message>
        <source>What all shots cover</source>
        <translation>모든 사진에 공통된 영역</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>취소</translation>
    </message>
</context>
<context>
    <name>Document</name>
    <message>
        <source>Background</source>
        <translation>배경</translation>
    </message>
    <message>
        <source>Show Layer</source>
        <translation>레이어 표시</translation>
    </message>
    <message>
        <source>Hide Layer</source>
        <translation>레이어 숨기기</translation>
    </message>
</context>
<context>
    <name>DocumentSaver</name>
    <message>
        <source>Unsaved Changes</source>
        <translation>저장하지 않은 변경 사항</translation>
    </message>
    <message>
        <source>Save the changes to “%1”?</source>
        <translation>“%1”의 변경 사항을 저장하시겠습니까?</translation>
    </message>
    <message>
        <source>If you do not save them, they will be lost.</source>
        <translation>저장하지 않으면 변경 사항이 사라집니다.</translation>
    </message>
    <message>
        <source>no layer is visible</source>
        <translation>표시된 레이어가 없습니다</translation>
    </message>
    <message>
        <source>Not Saved</source>
        <translation>저장하지 못함</translation>
    </message>
    <message>
        <source>“%1” could not be saved: %2.</source>
        <translation>“%1”을(를) 저장하지 못했습니다: %2.</translation>
    </message>
    <message>
        <source>The picture is still open, with all its changes. You can save it elsewhere.</source>
        <translation>이미지는 모든 변경 사항과 함께 열려 있습니다. 다른 위치에 저장할 수 있습니다.</translation>
    </message>
    <message>
        <source>Save &amp;As…</source>
        <translation>다른 이름으로 저장(&amp;A)…</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>제목 없음</translation>
    </message>
    <message>
        <source>not enough memory</source>
        <translation>메모리가 부족합니다</translation>
    </message>
    <message>
        <source>Show a layer in the list of layers, then save again.</source>
        <translation>레이어 목록에서 레이어를 표시한 다음 다시 저장하십시오.</translation>
    </message>
    <message>
        <source>%1 documents have unsaved changes.</source>
        <translation>문서 %1개에 저장하지 않은 변경 사항이 있습니다.</translation>
    </message>
    <message>
        <source>&amp;Save All</source>
        <translation>모두 저장(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Discard All</source>
        <translation>모두 버리기(&amp;D)</translation>
    </message>
    <message>
        <source>“%1” has been changed by another program.</source>
        <translation>다른 프로그램이 “%1”을(를) 변경했습니다.</translation>
    </message>
    <message>
        <source>If you replace it, what was changed there is lost.</source>
        <translation>바꾸면 그 변경 내용이 사라집니다.</translation>
    </message>
    <message>
        <source>“%1” holds a gain map: bright screens show it brighter.</source>
        <translation>“%1”에는 게인 맵이 있어 밝은 화면에서 더 밝게 표시됩니다.</translation>
    </message>
    <message>
        <source>Vesk cannot keep that. The file would look the same on all screens from now on.</source>
        <translation>Vesk는 이를 유지할 수 없습니다. 앞으로 이 파일은 모든 화면에서 똑같이 보입니다.</translation>
    </message>
    <message>
        <source>Replace the File?</source>
        <translation>파일을 바꾸시겠습니까?</translation>
    </message>
    <message>
        <source>&amp;Replace</source>
        <translation>바꾸기(&amp;R)</translation>
    </message>
</context>
<context>
    <name>DocumentTabBar</name>
    <message>
        <source>&amp;Close</source>
        <translation>닫기(&amp;C)</translation>
    </message>
    <message>
        <source>Close &amp;Others</source>
        <translation>다른 항목 닫기(&amp;O)</translation>
    </message>
</context>
<context>
    <name>DocumentTabs</name>
    <message>
        <source>Untitled</source>
        <translation>제목 없음</translation>
    </message>
    <message>
        <source>%1 •</source>
        <extracomment>A document with unsaved changes; %1 is its name.</extracomment>
        <translation>%1 •</translation>
    </message>
    <message>
        <source>All open documents</source>
        <translation>열려 있는 모든 문서</translation>
    </message>
    <message>
        <source>From the Other Side</source>
        <translation>반대쪽에서</translation>
    </message>
</context>
<context>
    <name>EditMenu</name>
    <message>
        <source>&amp;Edit</source>
        <translation>편집(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <extracomment>%1 is what the user did last, such as &quot;Crop&quot;.</extracomment>
        <translation>실행 취소(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>다시 실행(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>복사(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Paste as Document</source>
        <translation>문서로 붙여넣기(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Straighten…</source>
        <translation>수평 맞추기(&amp;S)…</translation>
    </message>
    <message>
        <source>Rotate &amp;Left</source>
        <translation>왼쪽으로 회전(&amp;L)</translation>
    </message>
    <message>
        <source>Rotate Ri&amp;ght</source>
        <translation>오른쪽으로 회전(&amp;G)</translation>
    </message>
    <message>
        <source>&amp;Undo: %1</source>
        <translation>실행 취소: %1(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Redo: %1</source>
        <translation>다시 실행: %1(&amp;R)</translation>
    </message>
    <message>
        <source>Pasted Picture</source>
        <extracomment>The name of a document from the clipboard.</extracomment>
        <translation>붙여넣은 사진</translation>
    </message>
    <message>
        <source>Cr&amp;op…</source>
        <translation>자르기(&amp;T)…</translation>
    </message>
</context>
<context>
    <name>EditorActions</name>
    <message>
        <source>&amp;Open…</source>
        <translation>열기(&amp;O)…</translation>
    </message>
    <message>
        <source>Open &amp;Folder…</source>
        <translation>폴더 열기(&amp;F)…</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>종료(&amp;Q)</translation>
    </message>
    <message>
        <source>Zoom &amp;In</source>
        <translation>확대(&amp;I)</translation>
    </message>
    <message>
        <source>Zoom &amp;Out</source>
        <translation>축소(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Fit to Window</source>
        <translation>창에 맞춤(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Actual Size (100 %)</source>
        <translation>실제 크기 (100%)(&amp;A)</translation>
    </message>
    <message>
        <source>Fit</source>
        <translation>맞춤</translation>
    </message>
    <message>
        <source>100 %</source>
        <extracomment>On a button: one pixel of the picture on one of the screen.</extracomment>
        <translation>100%</translation>
    </message>
    <message>
        <source>F&amp;ull Screen</source>
        <translation>전체 화면(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Next Document</source>
        <translation>다음 문서(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Previous Document</source>
        <translation>이전 문서(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Merge to HDR…</source>
        <translation>HDR로 병합(&amp;M)…</translation>
    </message>
    <message>
        <source>&amp;About Vesk</source>
        <translation>Vesk 정보(&amp;A)</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>열기</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <extracomment>The tip of a button: the command, and the keys that do the same.</extracomment>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Merge &amp;Exposures…</source>
        <translation>노출 합성(&amp;E)…</translation>
    </message>
    <message>
        <source>Align the selected shots and fuse them: preview, options, a new document</source>
        <translation>선택한 사진을 정렬하여 융합합니다: 미리보기, 옵션, 새 문서</translation>
    </message>
    <message>
        <source>Merge up to five shots by their weighted mean, in place of the document</source>
        <translation>최대 5장을 가중 평균으로 병합하여 문서를 대체합니다</translation>
    </message>
    <message>
        <source>Merge &amp;Brackets…</source>
        <translation>브래킷 합성(&amp;B)…</translation>
    </message>
    <message>
        <source>Find the brackets of a folder and merge them all, as Merge Exposures does</source>
        <translation>폴더의 브래킷을 찾아 ‘노출 합성’과 같은 방식으로 모두 합성합니다</translation>
    </message>
</context>
<context>
    <name>EditorStatusBar</name>
    <message>
        <source>%1 × %2</source>
        <extracomment>Width and height in pixels.</extracomment>
        <translation>%1 × %2</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1%</translation>
    </message>
    <message>
        <source>%1, %2   R %3 G %4 B %5</source>
        <extracomment>Position in pixels, and the levels of red, green and blue.</extracomment>
        <translation>%1, %2   R %3 G %4 B %5</translation>
    </message>
    <message>
        <source>Opening %1…</source>
        <translation>%1 여는 중…</translation>
    </message>
    <message>
        <source>Opening %1 (%2 of %3)…</source>
        <translation>%1 여는 중 (%2/%3)…</translation>
    </message>
</context>
<context>
    <name>Edits</name>
    <message>
        <source>Crop</source>
        <translation>자르기</translation>
    </message>
    <message>
        <source>Rotate</source>
        <translation>회전</translation>
    </message>
    <message>
        <source>Straighten</source>
        <translation>수평 맞추기</translation>
    </message>
    <message>
        <source>Adjust</source>
        <translation>조정</translation>
    </message>
</context>
<context>
    <name>ExposureMergeCommand</name>
    <message>
        <source>%1 merged</source>
        <extracomment>The name of a merged picture; %1 is that of the shot it was made from.</extracomment>
        <translation>%1 합성</translation>
    </message>
</context>
<context>
    <name>ExposureTexts</name>
    <message>
        <source>1/%1 s</source>
        <extracomment>An exposure time in seconds.</extracomment>
        <translation>1/%1초</translation>
    </message>
    <message>
        <source>%1 s</source>
        <extracomment>An exposure time in seconds.</extracomment>
        <translation>%1초</translation>
    </message>
    <message>
        <source>%1 EV</source>
        <extracomment>Stops of exposure, with a sign.</extracomment>
        <translation>%1 EV</translation>
    </message>
</context>
<context>
    <name>FilmStrip</name>
    <message>
        <source>No pictures in this folder</source>
        <translation>이 폴더에 이미지가 없습니다</translation>
    </message>
    <message>
        <source>Film Strip</source>
        <translation>필름 스트립</translation>
    </message>
</context>
<context>
    <name>FilmStripActions</name>
    <message>
        <source>&amp;Next Bracket</source>
        <translation>다음 브래킷(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Previous Bracket</source>
        <translation>이전 브래킷(&amp;P)</translation>
    </message>
    <message>
        <source>Select &amp;All Pictures</source>
        <translation>모든 이미지 선택(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Hide Merged Results</source>
        <translation>합성 결과 숨기기(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Rating</source>
        <translation>별점(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Sort By</source>
        <translation>정렬 기준(&amp;S)</translation>
    </message>
    <message>
        <source>The rating of “%1” could not be saved: %2.</source>
        <extracomment>%1 is the name of a picture, %2 the reason.</extracomment>
        <translation>‘%1’의 별점을 저장할 수 없습니다: %2.</translation>
    </message>
    <message>
        <source>No Stars</source>
        <translation>별 없음</translation>
    </message>
    <message>
        <source>&amp;Name</source>
        <translation>이름(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Time Taken</source>
        <translation>촬영 시각(&amp;T)</translation>
    </message>
    <message>
        <source>There is no further bracket in this folder.</source>
        <translation>이 폴더에 더 이상 브래킷이 없습니다.</translation>
    </message>
    <message>
        <source>Bracket %1 of %2</source>
        <translation>브래킷 %1/%2</translation>
    </message>
</context>
<context>
    <name>FilmStripModel</name>
    <message>
        <source>merged</source>
        <translation>합성</translation>
    </message>
    <message>
        <source>Bracket of %1, %2</source>
        <translation>%1장 브래킷, %2</translation>
    </message>
    <message>
        <source>A merged picture</source>
        <translation>합성된 이미지</translation>
    </message>
    <message>
        <source>bracket %1 of %2</source>
        <translation>브래킷 %1/%2</translation>
    </message>
    <message>
        <source>rated %1 of %2</source>
        <translation>별점 %1/%2</translation>
    </message>
</context>
<context>
    <name>HdrCommand</name>
    <message>
        <source>Merge to HDR</source>
        <translation>HDR로 병합</translation>
    </message>
    <message>
        <source>%1 pictures are selected, but at most %2 can be merged.</source>
        <translation>이미지 %1개가 선택되었지만 최대 %2개까지 병합할 수 있습니다.</translation>
    </message>
    <message>
        <source>Only these will be taken: %1</source>
        <translation>다음 이미지만 사용합니다: %1</translation>
    </message>
</context>
<context>
    <name>HistogramDock</name>
    <message>
        <source>Histogram</source>
        <translation>히스토그램</translation>
    </message>
    <message>
        <source>All channels</source>
        <translation>모든 채널</translation>
    </message>
    <message>
        <source>Luminosity</source>
        <translation>광도</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>빨강</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>초록</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>파랑</translation>
    </message>
    <message>
        <source>Logarithmic</source>
        <translation>로그</translation>
    </message>
</context>
<context>
    <name>JpegQualityDialog</name>
    <message>
        <source>JPEG Quality</source>
        <translation>JPEG 품질</translation>
    </message>
    <message>
        <source>&amp;Quality:</source>
        <translation>품질(&amp;Q):</translation>
    </message>
    <message>
        <source>Low values give small files, high ones keep more detail. From about 95 on, losses are hard to see.</source>
        <translation>값이 낮으면 파일이 작아지고, 높으면 세부가 더 잘 보존됩니다. 95 정도부터는 손실이 거의 보이지 않습니다.</translation>
    </message>
    <message>
        <source>JPEG files cannot hold transparency: what is transparent becomes white.</source>
        <translation>JPEG 파일은 투명도를 저장할 수 없습니다. 투명한 부분은 흰색이 됩니다.</translation>
    </message>
</context>
<context>
    <name>LanguageMenu</name>
    <message>
        <source>&amp;Language</source>
        <translation>언어(&amp;L)</translation>
    </message>
</context>
<context>
    <name>LayerDock</name>
    <message>
        <source>%1 %</source>
        <translation>%1%</translation>
    </message>
    <message>
        <source>%1 — %2</source>
        <extracomment>A layer and its opacity in percent.</extracomment>
        <translation>%1 — %2</translation>
    </message>
    <message>
        <source>Tick to show the layer</source>
        <translation>선택하면 레이어를 표시합니다</translation>
    </message>
    <message>
        <source>Layers</source>
        <translation>레이어</translation>
    </message>
</context>
<context>
    <name>LightCommand</name>
    <message>
        <source>%1 developed</source>
        <translation>%1 현상</translation>
    </message>
</context>
<context>
    <name>LightSaving</name>
    <message>
        <source>Radiance picture</source>
        <translation>Radiance 사진</translation>
    </message>
    <message>
        <source>TIFF picture, floating point</source>
        <translation>TIFF 사진, 부동 소수점</translation>
    </message>
    <message>
        <source>OpenEXR picture</source>
        <translation>OpenEXR 사진</translation>
    </message>
    <message>
        <source>Save Light</source>
        <translation>빛 저장</translation>
    </message>
    <message>
        <source>Not Saved</source>
        <translation>저장하지 못함</translation>
    </message>
    <message>
        <source>“%1” could not be saved: %2.</source>
        <translation>“%1”을(를) 저장하지 못했습니다: %2.</translation>
    </message>
    <message>
        <source>files of this kind hold no light; choose .exr, .hdr or .tif</source>
        <translation>이 종류의 파일은 빛을 담지 못합니다. .exr, .hdr 또는 .tif를 선택하십시오</translation>
    </message>
    <message>
        <source>JPEG picture that bright screens show brighter</source>
        <translation>밝은 화면에서 더 밝게 보이는 JPEG 사진</translation>
    </message>
    <message>
        <source>AVIF picture for bright screens</source>
        <translation>밝은 화면용 AVIF 사진</translation>
    </message>
    <message>
        <source>JPEG XL picture for bright screens</source>
        <translation>밝은 화면용 JPEG XL 사진</translation>
    </message>
    <message>
        <source>not enough memory</source>
        <translation>메모리가 부족합니다</translation>
    </message>
</context>
<context>
    <name>LightWindow</name>
    <message>
        <source>Exposure</source>
        <translation>노출</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>닫기</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>취소</translation>
    </message>
    <message>
        <source>&amp;Method:</source>
        <translation>방법(&amp;M):</translation>
    </message>
    <message>
        <source>&amp;Exposure:</source>
        <translation>노출(&amp;E):</translation>
    </message>
    <message>
        <source>%1 — Light</source>
        <translation>%1 — 빛</translation>
    </message>
    <message>
        <source>Mar&amp;k what is brighter than white</source>
        <translation>흰색보다 밝은 부분 표시(&amp;K)</translation>
    </message>
    <message>
        <source>&amp;Save Light…</source>
        <translation>빛 저장(&amp;S)…</translation>
    </message>
    <message>
        <source>&amp;Develop</source>
        <translation>현상(&amp;D)</translation>
    </message>
    <message>
        <source>As one shot shows it</source>
        <translation>한 장의 사진처럼</translation>
    </message>
    <message>
        <source>One curve for all of it</source>
        <translation>전체에 하나의 곡선</translation>
    </message>
    <message>
        <source>Each place at its best</source>
        <translation>부분마다 가장 알맞게</translation>
    </message>
    <message>
        <source>There is not enough memory to show this.</source>
        <translation>표시할 메모리가 부족합니다.</translation>
    </message>
    <message>
        <source>Not Developed</source>
        <translation>현상하지 못했습니다</translation>
    </message>
    <message>
        <source>There is not enough memory for a picture of this size.</source>
        <translation>이 크기의 사진을 만들 메모리가 부족합니다.</translation>
    </message>
    <message>
        <source>Developing…</source>
        <translation>현상하는 중…</translation>
    </message>
    <message>
        <source>Light Not Saved</source>
        <translation>빛이 저장되지 않음</translation>
    </message>
    <message>
        <source>The light is in no file yet. Close it without saving?</source>
        <translation>빛이 아직 파일에 없습니다. 저장하지 않고 닫을까요?</translation>
    </message>
</context>
<context>
    <name>LookBox</name>
    <message>
        <source>Look</source>
        <translation>모양</translation>
    </message>
    <message>
        <source>Aut&amp;o</source>
        <translation>자동(&amp;O)</translation>
    </message>
    <message>
        <source>A look that suits the picture, to begin with</source>
        <translation>사진에 어울리는 모양을 출발점으로 정합니다</translation>
    </message>
    <message>
        <source>Rese&amp;t</source>
        <translation>초기화(&amp;T)</translation>
    </message>
    <message>
        <source>Exposure:</source>
        <translation>노출:</translation>
    </message>
    <message>
        <source>Highlights:</source>
        <translation>밝은 영역:</translation>
    </message>
    <message>
        <source>Shadows:</source>
        <translation>어두운 영역:</translation>
    </message>
    <message>
        <source>Contrast:</source>
        <translation>대비:</translation>
    </message>
    <message>
        <source>Black point:</source>
        <translation>검정점:</translation>
    </message>
    <message>
        <source>White point:</source>
        <translation>흰점:</translation>
    </message>
    <message>
        <source>Saturation:</source>
        <translation>채도:</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Film Strip</source>
        <translation>필름 스트립</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>파일(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>도구(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Settings</source>
        <translation>설정(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>도움말(&amp;H)</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>언어</translation>
    </message>
    <message>
        <source>Vesk will speak this language when it is started again: %1</source>
        <translation>다음에 시작할 때부터 이 언어로 표시됩니다: %1</translation>
    </message>
    <message>
        <source>Tool Bar</source>
        <translation>도구 모음</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>%1 저장됨</translation>
    </message>
    <message>
        <source>Film Strip — %1</source>
        <translation>필름 스트립 — %1</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>이미지</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>모든 파일</translation>
    </message>
    <message>
        <source>Open Pictures</source>
        <translation>이미지 열기</translation>
    </message>
    <message>
        <source>Open Folder</source>
        <translation>폴더 열기</translation>
    </message>
    <message>
        <source>%1[*] — Vesk</source>
        <translation>%1[*] — Vesk</translation>
    </message>
    <message>
        <source>Fusion with preview</source>
        <translation>미리보기가 있는 융합</translation>
    </message>
    <message>
        <source>Weighted mean of up to five</source>
        <translation>최대 5장의 가중 평균</translation>
    </message>
    <message>
        <source>&amp;Pictures</source>
        <translation>이미지(&amp;P)</translation>
    </message>
</context>
<context>
    <name>MergeOptionsPanel</name>
    <message>
        <source>C&amp;rop to what all shots cover</source>
        <translation>공통 영역으로 자르기(&amp;R)</translation>
    </message>
    <message>
        <source>Merge</source>
        <translation>합성</translation>
    </message>
    <message>
        <source>Exposure fusion</source>
        <translation>노출 융합</translation>
    </message>
    <message>
        <source>Mean (as Merge to HDR)</source>
        <translation>평균 (‘HDR로 병합’과 같음)</translation>
    </message>
    <message>
        <source>&amp;Alignment:</source>
        <translation>정렬(&amp;A):</translation>
    </message>
    <message>
        <source>&amp;Ghosts:</source>
        <extracomment>What moved between the shots.</extracomment>
        <translation>고스트(&amp;G):</translation>
    </message>
    <message>
        <source>Remove, automatically</source>
        <translation>자동으로 제거</translation>
    </message>
    <message>
        <source>Leave them in</source>
        <translation>그대로 두기</translation>
    </message>
    <message>
        <source>From %1</source>
        <extracomment>%1 is the name of a shot.</extracomment>
        <translation>%1에서</translation>
    </message>
    <message>
        <source>Perspective</source>
        <translation>원근</translation>
    </message>
    <message>
        <source>Whole pixels</source>
        <translation>픽셀 단위</translation>
    </message>
    <message>
        <source>None (tripod)</source>
        <translation>없음 (삼각대)</translation>
    </message>
    <message>
        <source>Light of the scene</source>
        <translation>장면의 빛</translation>
    </message>
    <message>
        <source>M&amp;ethod:</source>
        <translation>방법(&amp;E):</translation>
    </message>
</context>
<context>
    <name>MergePreview</name>
    <message>
        <source>Preview</source>
        <translation>미리보기</translation>
    </message>
    <message>
        <source>Before</source>
        <translation>합성 전</translation>
    </message>
    <message>
        <source>One moment…</source>
        <translation>잠시만 기다리세요…</translation>
    </message>
</context>
<context>
    <name>MergeTexts</name>
    <message>
        <source>it is too small</source>
        <translation>너무 작습니다</translation>
    </message>
    <message>
        <source>it shows too little detail</source>
        <translation>세부가 부족합니다</translation>
    </message>
    <message>
        <source>it does not match the others</source>
        <translation>다른 사진과 맞지 않습니다</translation>
    </message>
    <message>
        <source>Reading the pictures…</source>
        <translation>사진을 읽는 중…</translation>
    </message>
    <message>
        <source>Aligning…</source>
        <translation>정렬 중…</translation>
    </message>
    <message>
        <source>Looking for what moved…</source>
        <translation>움직인 부분을 찾는 중…</translation>
    </message>
    <message>
        <source>Merging…</source>
        <translation>합성 중…</translation>
    </message>
    <message>
        <source>At most %1 pictures can be merged.</source>
        <translation>최대 %1장을 합성할 수 있습니다.</translation>
    </message>
    <message>
        <source>The pictures have different sizes.</source>
        <translation>사진의 크기가 서로 다릅니다.</translation>
    </message>
    <message>
        <source>Nothing is left to crop to: the pictures do not overlap.</source>
        <translation>사진이 겹치지 않아 자를 영역이 없습니다.</translation>
    </message>
    <message>
        <source>There is not enough memory.</source>
        <translation>메모리가 부족합니다.</translation>
    </message>
    <message>
        <source>“%1” could not be read: %2.</source>
        <extracomment>A file, and why it could not be read.</extracomment>
        <translation>‘%1’을(를) 읽을 수 없습니다: %2.</translation>
    </message>
    <message>
        <source>“%1” (%2 pixels) has not the size of “%3” (%4 pixels).</source>
        <translation>‘%1’ (%2 픽셀)의 크기가 ‘%3’ (%4 픽셀)과 다릅니다.</translation>
    </message>
    <message>
        <source>left unaligned: %1</source>
        <translation>정렬하지 않음: %1</translation>
    </message>
    <message>
        <source>lies as it is</source>
        <translation>그대로 일치함</translation>
    </message>
    <message>
        <source>aligned, %1 % sure</source>
        <extracomment>How far an alignment can be trusted, in percent.</extracomment>
        <translation>정렬됨, 확신도 %1 %</translation>
    </message>
    <message>
        <source>%1 was left unaligned: %2.</source>
        <translation>%1은(는) 정렬되지 않았습니다: %2.</translation>
    </message>
    <message>
        <source>A painted part does not belong to these pictures.</source>
        <translation>칠한 부분이 이 사진들에 속하지 않습니다.</translation>
    </message>
</context>
<context>
    <name>MergeWorkspace</name>
    <message>
        <source>A&amp;dd Shots…</source>
        <translation>사진 추가(&amp;D)…</translation>
    </message>
    <message>
        <source>&amp;Use as Reference</source>
        <translation>기준으로 사용(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Merge</source>
        <translation>합성(&amp;M)</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>닫기</translation>
    </message>
    <message>
        <source>Merge Exposures</source>
        <translation>노출 합성</translation>
    </message>
    <message>
        <source>S&amp;hots:</source>
        <translation>사진(&amp;H):</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>이미지</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>모든 파일</translation>
    </message>
    <message>
        <source>Add Shots</source>
        <translation>사진 추가</translation>
    </message>
    <message>
        <source>Add two or more shots of one scene, or drop them here.</source>
        <translation>한 장면을 찍은 사진을 두 장 이상 추가하거나 여기에 놓으세요.</translation>
    </message>
    <message>
        <source>Aligned: %1 of %2</source>
        <translation>정렬됨: %2장 중 %1장</translation>
    </message>
    <message>
        <source>Choose Reference A&amp;utomatically</source>
        <translation>기준 자동 선택(&amp;U)</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>취소</translation>
    </message>
    <message>
        <source>Not Merged</source>
        <translation>합성하지 못함</translation>
    </message>
    <message>
        <source>&amp;Next Bracket</source>
        <translation>다음 브래킷(&amp;N)</translation>
    </message>
    <message>
        <source>Merge Exposures — bracket %1 of %2</source>
        <translation>노출 합성 — 브래킷 %1/%2</translation>
    </message>
    <message>
        <source>Sharpening…</source>
        <translation>선명하게 하는 중…</translation>
    </message>
</context>
<context>
    <name>OpenFailureBox</name>
    <message>
        <source>“%1”: %2</source>
        <extracomment>A file, and why it could not be opened.</extracomment>
        <translation>“%1”: %2</translation>
    </message>
    <message>
        <source>This file could not be opened:</source>
        <translation>다음 파일을 열지 못했습니다:</translation>
    </message>
    <message numerus="yes">
        <source>%n files could not be opened:</source>
        <translation>
            <numerusform>파일 %n개를 열지 못했습니다:</numerusform>
        </translation>
    </message>
    <message>
        <source>Not Opened</source>
        <translation>열지 못함</translation>
    </message>
</context>
<context>
    <name>OutputFile</name>
    <message>
        <source>Permission denied</source>
        <translation>권한이 없습니다</translation>
    </message>
    <message>
        <source>Disk quota exceeded</source>
        <translation>디스크 할당량을 초과했습니다</translation>
    </message>
    <message>
        <source>No space left on device</source>
        <translation>장치에 남은 공간이 없습니다</translation>
    </message>
    <message>
        <source>Read-only file system</source>
        <translation>파일 시스템이 읽기 전용입니다</translation>
    </message>
    <message>
        <source>there is no such folder</source>
        <translation>폴더가 없습니다</translation>
    </message>
    <message>
        <source>is a directory</source>
        <translation>폴더입니다</translation>
    </message>
    <message>
        <source>not a regular file</source>
        <translation>일반 파일이 아닙니다</translation>
    </message>
    <message>
        <source>the file exists already</source>
        <translation>파일이 이미 있습니다</translation>
    </message>
</context>
<context>
    <name>PhotoDock</name>
    <message>
        <source>%1 s</source>
        <extracomment>A time in seconds.</extracomment>
        <translation>%1초</translation>
    </message>
    <message>
        <source>Photograph</source>
        <translation>촬영 정보</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>카메라</translation>
    </message>
    <message>
        <source>Lens</source>
        <translation>렌즈</translation>
    </message>
    <message>
        <source>Taken</source>
        <translation>촬영 일시</translation>
    </message>
    <message>
        <source>Aperture</source>
        <translation>조리개</translation>
    </message>
    <message>
        <source>Sensitivity</source>
        <translation>감도</translation>
    </message>
    <message>
        <source>Focal length</source>
        <extracomment>A length in millimetres.</extracomment>
        <translation>초점 거리</translation>
    </message>
    <message>
        <source>%1 mm</source>
        <translation>%1mm</translation>
    </message>
    <message>
        <source>Correction</source>
        <extracomment>An exposure in stops, with its sign.</extracomment>
        <translation>노출 보정</translation>
    </message>
    <message>
        <source>%1 EV</source>
        <translation>%1 EV</translation>
    </message>
    <message>
        <source>Exposure time</source>
        <translation>노출 시간</translation>
    </message>
</context>
<context>
    <name>PictureDecoder</name>
    <message>
        <source>no such file</source>
        <translation>파일이 없습니다</translation>
    </message>
    <message>
        <source>is a directory</source>
        <translation>폴더입니다</translation>
    </message>
    <message>
        <source>not a regular file</source>
        <translation>일반 파일이 아닙니다</translation>
    </message>
    <message>
        <source>no permission to read it</source>
        <translation>읽을 권한이 없습니다</translation>
    </message>
    <message>
        <source>cannot be read</source>
        <translation>읽을 수 없습니다</translation>
    </message>
    <message>
        <source>the file is empty</source>
        <translation>파일이 비어 있습니다</translation>
    </message>
    <message>
        <source>not a picture</source>
        <translation>이미지가 아닙니다</translation>
    </message>
    <message>
        <source>the picture is truncated or damaged</source>
        <translation>이미지가 잘렸거나 손상되었습니다</translation>
    </message>
    <message>
        <source>the picture is too large (%1 x %2 pixels)</source>
        <translation>이미지가 너무 큽니다 (%1 × %2픽셀)</translation>
    </message>
    <message>
        <source>not enough memory for %1 x %2 pixels</source>
        <translation>%1 × %2픽셀을 처리할 메모리가 부족합니다</translation>
    </message>
    <message>
        <source>not enough memory</source>
        <translation>메모리가 부족합니다</translation>
    </message>
    <message>
        <source>cancelled</source>
        <translation>취소되었습니다</translation>
    </message>
    <message>
        <source>%1, a kind of picture that this build does not read</source>
        <extracomment>%1 is the name of a file format, such as HEIC</extracomment>
        <translation>%1: 이 버전에서 읽지 못하는 종류의 사진입니다</translation>
    </message>
    <message>
        <source>the camera raw file cannot be converted: %1</source>
        <translation>카메라 RAW 파일을 변환할 수 없습니다: %1</translation>
    </message>
</context>
<context>
    <name>PictureEncoder</name>
    <message>
        <source>JPEG files hold at most %1 pixels in a row or column</source>
        <translation>JPEG 파일의 가로와 세로는 각각 최대 %1픽셀입니다</translation>
    </message>
    <message>
        <source>the JPEG file could not be written</source>
        <translation>JPEG 파일을 쓰지 못했습니다</translation>
    </message>
    <message>
        <source>not enough memory</source>
        <translation>메모리가 부족합니다</translation>
    </message>
    <message>
        <source>the PNG file could not be written</source>
        <translation>PNG 파일을 쓰지 못했습니다</translation>
    </message>
    <message>
        <source>the OpenEXR file could not be written</source>
        <translation>OpenEXR 파일을 쓰지 못했습니다</translation>
    </message>
    <message>
        <source>the Radiance file could not be written</source>
        <translation>Radiance 파일을 쓰지 못했습니다</translation>
    </message>
    <message>
        <source>the TIFF file could not be written</source>
        <translation>TIFF 파일을 쓰지 못했습니다</translation>
    </message>
    <message>
        <source>this program was built without OpenEXR</source>
        <translation>이 프로그램은 OpenEXR 없이 빌드되었습니다</translation>
    </message>
    <message>
        <source>the AVIF file could not be written</source>
        <translation>AVIF 파일을 쓰지 못했습니다</translation>
    </message>
    <message>
        <source>the JPEG XL file could not be written</source>
        <translation>JPEG XL 파일을 쓰지 못했습니다</translation>
    </message>
    <message>
        <source>this program was built without AVIF</source>
        <translation>이 프로그램은 AVIF 없이 빌드되었습니다</translation>
    </message>
    <message>
        <source>this program was built without JPEG XL</source>
        <translation>이 프로그램은 JPEG XL 없이 빌드되었습니다</translation>
    </message>
</context>
<context>
    <name>PictureRating</name>
    <message>
        <source>its XMP file cannot be read</source>
        <translation>XMP 파일을 읽을 수 없습니다</translation>
    </message>
</context>
<context>
    <name>PreviewBar</name>
    <message>
        <source>Before</source>
        <translation>합성 전</translation>
    </message>
    <message>
        <source>The reference as it was taken, while B or this is held</source>
        <translation>B 또는 이 버튼을 누르는 동안 기준 사진을 보여 줍니다</translation>
    </message>
    <message>
        <source>Split</source>
        <translation>나누기</translation>
    </message>
    <message>
        <source>Before and after side by side; drag the line (S)</source>
        <translation>전과 후를 나란히 표시. 선을 끌 수 있습니다 (S)</translation>
    </message>
    <message>
        <source>Blink</source>
        <translation>번갈아</translation>
    </message>
    <message>
        <source>The aligned shots, one after the other (K)</source>
        <translation>정렬된 사진을 차례로 표시 (K)</translation>
    </message>
    <message>
        <source>Clipping</source>
        <translation>클리핑</translation>
    </message>
    <message>
        <source>Red where it is too bright, blue where it is too dark (C)</source>
        <translation>너무 밝은 곳은 빨강, 너무 어두운 곳은 파랑 (C)</translation>
    </message>
    <message>
        <source>Loupe</source>
        <translation>돋보기</translation>
    </message>
    <message>
        <source>100 % around the pointer (L)</source>
        <translation>포인터 주변을 100%로 표시 (L)</translation>
    </message>
    <message>
        <source>Fit</source>
        <extracomment>On a button: the picture as large as it fits.</extracomment>
        <translation>맞춤</translation>
    </message>
    <message>
        <source>As large as it fits (Ctrl+0)</source>
        <translation>창에 맞게 표시 (Ctrl+0)</translation>
    </message>
    <message>
        <source>100 %</source>
        <extracomment>On a button: one pixel of the picture on one of the screen.</extracomment>
        <translation>100%</translation>
    </message>
    <message>
        <source>Pixel for pixel (Ctrl+1)</source>
        <translation>픽셀 대 픽셀 (Ctrl+1)</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1%</translation>
    </message>
</context>
<context>
    <name>RecentFilesMenu</name>
    <message>
        <source>Open &amp;Recent</source>
        <translation>최근 파일(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Clear List</source>
        <translation>목록 지우기(&amp;C)</translation>
    </message>
</context>
<context>
    <name>Recovery</name>
    <message>
        <source>the folder “%1” cannot be written</source>
        <translation>“%1” 폴더에 쓸 수 없습니다</translation>
    </message>
</context>
<context>
    <name>SaveDialog</name>
    <message>
        <source>JPEG picture</source>
        <translation>JPEG 이미지</translation>
    </message>
    <message>
        <source>PNG picture</source>
        <translation>PNG 이미지</translation>
    </message>
    <message>
        <source>TIFF picture</source>
        <translation>TIFF 이미지</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>다른 이름으로 저장</translation>
    </message>
    <message>
        <source>PNG picture, 16 bits per channel</source>
        <translation>PNG 그림, 채널당 16비트</translation>
    </message>
    <message>
        <source>PNG picture, 8 bits per channel</source>
        <translation>PNG 그림, 채널당 8비트</translation>
    </message>
    <message>
        <source>TIFF picture, 16 bits per channel</source>
        <translation>TIFF 그림, 채널당 16비트</translation>
    </message>
    <message>
        <source>TIFF picture, 8 bits per channel</source>
        <translation>TIFF 그림, 채널당 8비트</translation>
    </message>
</context>
<context>
    <name>ScreenColoursMenu</name>
    <message>
        <source>&amp;Screen Colours</source>
        <translation>화면 색상(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;sRGB (Most Screens)</source>
        <translation>sRGB (대부분의 화면)(&amp;S)</translation>
    </message>
    <message>
        <source>Colour profiles</source>
        <translation>색상 프로파일</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>모든 파일</translation>
    </message>
    <message>
        <source>Profile of the Screen</source>
        <translation>화면 프로파일</translation>
    </message>
    <message>
        <source>Screen Colours</source>
        <translation>화면 색상</translation>
    </message>
    <message>
        <source>“%1” is not a colour profile for a screen.</source>
        <translation>‘%1’은(는) 화면용 색상 프로파일이 아닙니다.</translation>
    </message>
    <message>
        <source>&amp;Profile File…</source>
        <translation>프로파일 파일(&amp;P)…</translation>
    </message>
    <message>
        <source>&amp;Profile File: %1…</source>
        <translation>프로파일 파일(&amp;P): %1…</translation>
    </message>
</context>
<context>
    <name>SessionKeeper</name>
    <message>
        <source>Recovery</source>
        <translation>복구</translation>
    </message>
    <message>
        <source>Vesk did not end as it should. Unsaved changes were kept of:</source>
        <translation>Vesk가 비정상적으로 종료되었습니다. 저장하지 않은 변경 사항이 남아 있는 문서:</translation>
    </message>
    <message>
        <source>&amp;Recover</source>
        <translation>복구(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Later</source>
        <translation>나중에(&amp;L)</translation>
    </message>
    <message>
        <source>Could not be recovered: %1</source>
        <translation>복구하지 못했습니다: %1</translation>
    </message>
    <message>
        <source>Unsaved changes cannot be kept for recovery: %1</source>
        <translation>복구용으로 변경 사항을 보관할 수 없습니다: %1</translation>
    </message>
</context>
<context>
    <name>ShotList</name>
    <message>
        <source>Shots</source>
        <translation>사진</translation>
    </message>
    <message>
        <source>Reading…</source>
        <translation>읽는 중…</translation>
    </message>
    <message>
        <source>★ reference</source>
        <extracomment>The shot that the others are aligned to.</extracomment>
        <translation>★ 기준</translation>
    </message>
</context>
<context>
    <name>StartPage</name>
    <message>
        <source>Drop photographs or a folder here</source>
        <translation>사진이나 폴더를 여기에 끌어다 놓으세요</translation>
    </message>
</context>
<context>
    <name>StraightenTool</name>
    <message>
        <source>Straighten</source>
        <translation>수평 맞추기</translation>
    </message>
    <message>
        <source>Draw a line along the horizon, or along something upright</source>
        <translation>수평선이나 수직인 물체를 따라 선을 그으세요</translation>
    </message>
</context>
<context>
    <name>ThemeMenu</name>
    <message>
        <source>&amp;Theme</source>
        <translation>테마(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;As the Desktop</source>
        <translation>데스크톱 설정 사용(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>어둡게(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>밝게(&amp;L)</translation>
    </message>
</context>
<context>
    <name>VeskActionManager</name>
    <message>
        <source>&amp;Save</source>
        <translation>저장(&amp;S)</translation>
    </message>
    <message>
        <source>Save &amp;As…</source>
        <translation>다른 이름으로 저장(&amp;A)…</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>닫기(&amp;C)</translation>
    </message>
</context>
<context>
    <name>VeskProgressIndicator</name>
    <message>
        <source>Please wait</source>
        <translation>잠시 기다려 주세요</translation>
    </message>
</context>
<context>
    <name>VeskRaw</name>
    <message>
        <source>Unspecified error</source>
        <translation>알 수 없는 오류</translation>
    </message>
    <message>
        <source>Unsupported file format or not RAW file</source>
        <translation>지원하지 않는 형식이거나 RAW 파일이 아닙니다</translation>
    </message>
    <message>
        <source>Unsufficient memory</source>
        <translation>메모리가 부족합니다</translation>
    </message>
    <message>
        <source>Corrupted data or unexpected EOF</source>
        <translation>데이터가 손상되었거나 파일이 중간에 끝났습니다</translation>
    </message>
    <message>
        <source>Input/output error</source>
        <translation>입출력 오류</translation>
    </message>
    <message>
        <source>Cancelled by user callback</source>
        <translation>취소되었습니다</translation>
    </message>
    <message>
        <source>Image too big for processing</source>
        <translation>이미지가 너무 큽니다</translation>
    </message>
    <message>
        <source>The picture has more pixels than allowed</source>
        <translation>이미지의 픽셀 수가 허용 한도를 넘습니다</translation>
    </message>
    <message>
        <source>The file is damaged</source>
        <translation>파일이 손상되었습니다</translation>
    </message>
    <message>
        <source>Not enough memory</source>
        <translation>메모리가 부족합니다</translation>
    </message>
    <message>
        <source>The raw library failed</source>
        <translation>RAW 라이브러리에서 오류가 발생했습니다</translation>
    </message>
    <message>
        <source>The raw converter cannot be started</source>
        <translation>RAW 변환기를 시작할 수 없습니다</translation>
    </message>
    <message>
        <source>The raw converter ended before it was done</source>
        <translation>RAW 변환기가 작업을 마치기 전에 종료되었습니다</translation>
    </message>
    <message>
        <source>The conversion took too long</source>
        <translation>변환 시간이 너무 오래 걸렸습니다</translation>
    </message>
</context>
<context>
    <name>VeskTitleWidget</name>
    <message>
        <source>Minimize</source>
        <translation>최소화</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>최대화</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>닫기</translation>
    </message>
</context>
<context>
    <name>ViewMenu</name>
    <message>
        <source>&amp;View</source>
        <translation>보기(&amp;V)</translation>
    </message>
    <message>
        <source>&amp;Clipping Warning</source>
        <translation>클리핑 경고(&amp;C)</translation>
    </message>
    <message>
        <source>Side by &amp;Side</source>
        <translation>나란히 보기(&amp;S)</translation>
    </message>
    <message>
        <source>Show another document beside this one</source>
        <translation>다른 문서를 이 문서 옆에 표시합니다</translation>
    </message>
    <message>
        <source>&amp;Lock Views</source>
        <translation>보기 연동(&amp;L)</translation>
    </message>
    <message>
        <source>Zoom and place of both documents move together</source>
        <translation>두 문서의 배율과 위치가 함께 움직입니다</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>A small photo editor that merges bracketed photographs.</source>
        <translation>노출을 달리하여 찍은 사진을 병합하는 작은 사진 편집기입니다.</translation>
    </message>
    <message>
        <source>Merge these pictures.</source>
        <translation>이 사진들을 합성합니다.</translation>
    </message>
    <message>
        <source>Pictures to open, or a folder to show.</source>
        <translation>열 이미지 또는 표시할 폴더.</translation>
    </message>
</context>
</TS>
