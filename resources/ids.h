// Numbers of everything in resources/. Included by the resource script too, so: only #define.
#pragma once

#define IDI_LAUNCHER 1

// String table. The numbers are fixed: translators and resource editors know them.
#define IDS_WINDOWS_EXCEPTION 202
#define IDS_JNI_EXCEPTION_REASON 203
#define IDS_COM_ERROR 204
#define IDS_JNI_EXCEPTION 205
#define IDS_SERVER_JRE_NOT_FOUND 206
#define IDS_JRE_NOT_FOUND 207
#define IDS_NO_MODULE_PATH 208
#define IDS_NO_CLASS_PATH 209
#define IDS_NO_MAIN_CLASS 210
#define IDS_MAIN_CLASS_NOT_LOADED 211
#define IDS_NO_CREATE_JAVA_VM 212
#define IDS_JAVA_VM_NOT_CREATED 213
#define IDS_BROWSE_FOR_JRE 214
#define IDS_MAIN_CLASS_NOT_FOUND 215
#define IDS_NO_MAIN_METHOD 216
#define IDS_LATEST_VERSION 217
#define IDS_MAXIMUM_VERSION 218
#define IDS_MINIMUM_VERSION 219
#define IDS_EXACT_VERSION 220
#define IDS_VERSION_RANGE 221
#define IDS_JVM_NOT_LOADED 222
#define IDS_NOT_INITIALIZED 223
#define IDS_MODULE_NOT_INITIALIZED 224
#define IDS_REASON_UNKNOWN 225
#define IDS_REASON_DETACHED 226
#define IDS_REASON_VERSION 227
#define IDS_REASON_NO_MEMORY 228
#define IDS_REASON_EXISTS 229
#define IDS_REASON_INVALID 230

// The "Java Exception" dialog. Its number, its two buttons' (IDOK, IDCANCEL) and the trace's are
// fixed like the texts'.
#define IDD_JAVA_EXCEPTION 231
#define IDC_EXCEPTION_TRACE 208
#define IDC_EXCEPTION_FRAME 1001
#define IDC_EXCEPTION_ICON 1002
#define IDC_EXCEPTION_THROWN 1003
#define IDC_EXCEPTION_CHOICE 1004
#define IDC_EXCEPTION_WARNING 1005
#define IDC_EXCEPTION_GRIP 1006

// The dialog for a launch that finds no runtime.
#define IDD_JRE_NOT_FOUND 201
#define IDC_JRE_PATH 201
#define IDC_BROWSE 202
#define IDC_JRE_MESSAGE 203
#define IDC_ERROR_ICON 204
#define IDC_DOWNLOAD_LINK 205
#define IDC_BROWSE_HINT 206
