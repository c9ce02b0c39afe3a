/* Identifiers of the menu, the dialogs and the other resources. The resource script, the code and
   the tests all take them from here, so this file holds #defines only. */
#ifndef ZENTRIK_H
#define ZENTRIK_H

/* Menu commands; shell/commands.cpp says what each runs. */
#define CM_NEW_MORV 100
#define CM_OPEN_MORV 101
#define CM_SAVE_MORV 102
#define CM_SAVE_AS_MORV 103
#define CM_CLOSE_MORV 104
#define CM_EXIT 105
#define CM_HISTORY_LENGTH 106
#define CM_ADD_RESULTS 107
#define CM_ADD_FACTS 108
#define CM_RESOURCE_REMOVE 109
#define CM_NEW_SYSTEM 110
#define CM_ADD_RULES 111
#define CM_RULES 112
#define CM_TILE_HORIZONTAL 113
#define CM_CASCADE 114
#define CM_OPEN_SYSTEM 115
#define CM_TILE_VERTICAL 116
#define CM_OPEN_RESOURCE 117
#define CM_NEW_TAGS 118
#define CM_NEW_RESULTS 119
#define CM_SAVE_SYSTEM 120
#define CM_SAVE_AS_SYSTEM 121
#define CM_CLOSE_SYSTEM 122
#define CM_ARRANGE_ICONS 123
#define CM_TOOLS 124
#define CM_NEW_FACTS_BASE 125
#define CM_COMPILE 126
#define CM_ADD_OPPOSITES 127
#define CM_ADD_HEADER 128
#define CM_ADD_LOCAL_VARS 129
#define CM_NEW_DDE 130
#define CM_LOAD_DDE 131
#define CM_DEBUG 132
#define CM_HELP_INDEX 133
#define CM_ABOUT 134
#define CM_HELP_CONTENTS 135
#define CM_NEW_FILE 136
#define CM_ADD_MAIN 137
#define CM_ADD_SYSTEM 138
#define CM_ADD_EXTERN 139
#define CM_REMOVE_ITEM 140
#define CM_ADD_DDE 141
#define CM_UNDO 142
#define CM_CUT 143
#define CM_COPY 144
#define CM_PASTE 145
#define CM_OPEN_FILE 146
#define CM_SAVE_FILE 147
#define CM_SAVE_FILE_AS 148
#define CM_CLOSE_FILE 149
#define CM_INIT_FACTS 150
#define CM_EXECUTE 151

/* Accelerators in the table "ATABLE", which is never loaded. */
#define CM_ACCEL_UNDO 600
#define CM_ACCEL_COPY 601
#define CM_ACCEL_PASTE 602
#define CM_ACCEL_CUT 603

/* Icons of the window classes. */
#define ICON_FRAME 1
#define ICON_PROJECT 2
#define ICON_EDITOR 3
#define ICON_MESSAGES 4
#define ICON_SYSTEM 5

/* Toolbar buttons. */
#define TB_NEW_MORV 10
#define TB_OPEN_MORV 11
#define TB_NEW_SYSTEM 12
#define TB_OPEN_SYSTEM 13
#define TB_NEW_FILE 14
#define TB_DEBUG 15
#define TB_COMPILE 16
#define TB_EXECUTE 17

/* Toolbar pictures, 64 x 64; each pressed one shows the held button. */
#define BMP_NEW_MORV 8
#define BMP_NEW_MORV_PRESSED 9
#define BMP_EXECUTE 10
#define BMP_EXECUTE_PRESSED 11
#define BMP_NEW_SYSTEM 13
#define BMP_NEW_SYSTEM_PRESSED 14
#define BMP_OPEN_MORV 15
#define BMP_OPEN_MORV_PRESSED 16
#define BMP_OPEN_SYSTEM 17
#define BMP_OPEN_SYSTEM_PRESSED 18
#define BMP_NEW_FILE 19
#define BMP_NEW_FILE_PRESSED 20
#define BMP_COMPILE 21
#define BMP_COMPILE_PRESSED 22
#define BMP_DEBUG 23
#define BMP_DEBUG_PRESSED 24

/* Help topics. */
#define HELP_TOPIC_TOOLS 93
#define HELP_TOPIC_INDEX 110

/* "Goto_Box": the line of a text. */
#define GOTO_LINE 354

/* "HL_Box": value history length. */
#define HL_LENGTH 313

/* "Debug_Box": progress of the rule check. */
#define DEBUG_RULE 300
#define DEBUG_PROJECT 303
#define DEBUG_START 317
#define DEBUG_PROGRESS 319
#define DEBUG_SYSTEM 321
#define DEBUG_RULES_FILE 343

/* "Tool_Box": compiler tools. */
#define TOOL_INCLUDE 11
#define TOOL_COMPILER_PATH 12
#define TOOL_ADD 19
#define TOOL_HELP 29
#define TOOL_COMMAND 312
#define TOOL_MORV_PATH 315
#define TOOL_REMOVE 328

/* "Add_Box": facts of a system, results of the project. */
#define ADD_REMOVE 304
#define ADD_OK 305
#define ADD_CANCEL 316
#define ADD_ADD 329
#define ADD_CHOSEN 339
#define ADD_OFFERED 344

/* "Rule_Box": the rule editor. */
#define RULE_TAGS 318
#define RULE_END_RULE 325
#define RULE_COUNT 333
#define RULE_RULE 336
#define RULE_RULES 340
#define RM_REMOVE_RULE 200
#define RM_CLOSE 201
#define RM_OPEN_TAGS 202
#define RM_SAVE_FILE_AS 203
#define RM_NEW_FILE 204
#define RM_MOVE_RULE 205
#define RM_CLOSE_TAGS 206
#define RM_OPEN_RULES 207
#define RM_SAVE_FILE 209

/* "Knowledge_Box": the facts base. */
#define KNOW_FACTS 306
#define KNOW_IDENT 307
#define KNOW_ADD_TYPE 308
#define KNOW_CLOSE 309
#define KNOW_UNIT 310
#define KNOW_REMOVE 311
#define KNOW_TYPE 312
#define KNOW_DESCRIPTION 320
#define KNOW_NAME 322
#define KNOW_HIGHEST 332
#define KNOW_LOWER_LIMIT 342
#define KNOW_TYPES 345
#define KNOW_LOW 347
#define KNOW_LOWEST 348
#define KNOW_HIGH 349
#define KNOW_NORMAL 350
#define KNOW_INTERVAL 351
#define KNOW_STEP 352
#define KNOW_HIGHER_LIMIT 353

/* "KnowType_Box": knowledge types. */
#define KTYPE_REMOVE 328
#define KTYPE_LIST 345
#define KTYPE_NAME 346

/* "Tags_Box" and "Res_Box": lists of names. */
#define TAGS_CLOSE 309
#define TAGS_NAME 326
#define TAGS_LIST 327
#define TAGS_REMOVE 328
#define RES_CLOSE 309
#define RES_REMOVE 328
#define RES_NAME 331
#define RES_LIST 337

/* "Result_Box": opposites. */
#define OPP_PAIRS 301
#define OPP_OPPOSITE 302
#define OPP_ADD 307
#define OPP_CLOSE 309
#define OPP_REMOVE 311
#define OPP_RESULTS 334
#define OPP_RESULT 338

/* "Var_Box": local variables. */
#define VAR_CLOSE 8
#define VAR_LIST 10
#define VAR_ADD 19
#define VAR_DDE 29
#define VAR_LOAD 30
#define VAR_TYPE 200
#define VAR_VALUE 202
#define VAR_NAME 204
#define VAR_REMOVE 328

/* "Init_Box": initial facts. */
#define INIT_CLOSE 8
#define INIT_VARS 10
#define INIT_FACTS 11
#define INIT_VALUE 12
#define INIT_FACT 13
#define INIT_REMOVE 19
#define INIT_CERTAINTY 666

/* "Dde_Box": DDE items. */
#define DDE_CLOSE 309
#define DDE_NAME 310
#define DDE_REMOVE 328
#define DDE_ITEM_NAME 330
#define DDE_ITEMS 335
#define DDE_TYPE 346

#endif
