<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ko_KR" sourcelanguage="en_US">
<context>
    <name>PictureDecoder</name>
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
</context>
<context>
    <name>VeskOpenCLDeviceSelection</name>
    <message>
        <source>VeskOpenCLDeviceSelection</source>
        <translation>OpenCL 장치 선택</translation>
    </message>
    <message>
        <source>OpenCL Platform</source>
        <translation>OpenCL 플랫폼</translation>
    </message>
    <message>
        <source>OpenCL Device</source>
        <translation>OpenCL 장치</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>항목</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>값</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>확인</translation>
    </message>
    <message>
        <source>OpenCL Device Selection</source>
        <translation>OpenCL 장치 선택</translation>
    </message>
    <message>
        <source>OpenCL Platform:</source>
        <translation>OpenCL 플랫폼:</translation>
    </message>
    <message>
        <source>OpenCL Version:</source>
        <translation>OpenCL 버전:</translation>
    </message>
    <message>
        <source>OpenCL Device Name</source>
        <translation>장치 이름</translation>
    </message>
    <message>
        <source>OpenCL Device Vendor</source>
        <translation>제조업체</translation>
    </message>
    <message>
        <source>OpenCL Device Driver Version</source>
        <translation>드라이버 버전</translation>
    </message>
    <message>
        <source>OpenCL Device Global Cache Type</source>
        <translation>전역 캐시 유형</translation>
    </message>
    <message>
        <source>OpenCL Device Cores</source>
        <translation>연산 유닛 수</translation>
    </message>
    <message>
        <source>OpenCL Device Frequency</source>
        <translation>클럭 주파수</translation>
    </message>
    <message>
        <source>OpenCL Device Local Memory Size</source>
        <translation>로컬 메모리 크기</translation>
    </message>
    <message>
        <source>OpenCL Device Global Memory Size</source>
        <translation>전역 메모리 크기</translation>
    </message>
    <message>
        <source>OpenCL Device Global Cache Size</source>
        <translation>전역 캐시 크기</translation>
    </message>
    <message>
        <source>OpenCL Device Global Cache Line</source>
        <translation>캐시 라인(바이트)</translation>
    </message>
    <message>
        <source>OpenCL Device Image Support</source>
        <translation>이미지 지원</translation>
    </message>
    <message>
        <source>OpenCL Device Type</source>
        <translation>장치 유형</translation>
    </message>
    <message>
        <source>OpenCL Device Extensions</source>
        <translation>확장 기능</translation>
    </message>
    <message>
        <source>None</source>
        <translation>없음</translation>
    </message>
    <message>
        <source>Read Only</source>
        <translation>읽기 전용</translation>
    </message>
    <message>
        <source>Read and Write</source>
        <translation>읽기 및 쓰기</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>지원</translation>
    </message>
    <message>
        <source>No Support</source>
        <translation>지원 안 함</translation>
    </message>
</context>
<context>
    <name>VeskToolHDR</name>
    <message>
        <source>Alert</source>
        <translation>알림</translation>
    </message>
    <message>
        <source>This document has been modified. Save it?</source>
        <translation>이 문서가 수정되었습니다. 저장하시겠습니까?</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>저장</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>취소</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>저장 안 함</translation>
    </message>
    <message>
        <source>You can only add up to 5 pictures.</source>
        <translation>이미지는 최대 5장까지 추가할 수 있습니다.</translation>
    </message>
    <message>
        <source>%1 is not a valid image!</source>
        <translation>%1은(는) 올바른 이미지가 아닙니다!</translation>
    </message>
    <message>
        <source>Pictures shall be in same size.</source>
        <translation>모든 이미지의 크기가 같아야 합니다.</translation>
    </message>
    <message>
        <source>HDR merge failed! Pictures shall be in same size.</source>
        <translation>HDR 병합에 실패했습니다! 모든 이미지의 크기가 같아야 합니다.</translation>
    </message>
    <message>
        <source>used: %1 ms</source>
        <translation>소요 시간: %1ms</translation>
    </message>
    <message>
        <source>layer</source>
        <translation>레이어</translation>
    </message>
</context>
<context>
    <name>VeskToolHDRWidget</name>
    <message>
        <source>Image files(</source>
        <translation>이미지 파일 (</translation>
    </message>
    <message>
        <source>Open a image for HDR</source>
        <translation>HDR로 병합할 이미지 열기</translation>
    </message>
    <message>
        <source>Use CUDA</source>
        <translatorcomment>No longer shown. Kept so that the catalogue stays complete.</translatorcomment>
        <translation>CUDA 사용</translation>
    </message>
</context>
<context>
    <name>VeskToolHDRWidgetClass</name>
    <message>
        <source>Merge to HDR</source>
        <translation>HDR로 병합</translation>
    </message>
    <message>
        <source>Source Pictures</source>
        <translation>소스 이미지</translation>
    </message>
    <message>
        <source>Choose two or more pictures from a set of exposures to
merge and create a High Dynamic Range image.</source>
        <translation>노출이 서로 다른 이미지를 두 장 이상 선택하면
하나의 HDR(High Dynamic Range) 이미지로 병합합니다.</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>찾아보기...</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>제거</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>확인</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>취소</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>옵션</translation>
    </message>
    <message>
        <source>Use OpenCL with</source>
        <translation>OpenCL 사용</translation>
    </message>
    <message>
        <source>Changed device</source>
        <translation>장치 변경</translation>
    </message>
    <message>
        <source>Attempt to automatically align source images</source>
        <translation>소스 이미지 자동 정렬 시도</translation>
    </message>
</context>
</TS>
