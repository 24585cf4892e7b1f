; SPDX-License-Identifier: MIT
; Stepper motor driver on a PIC18F2550: the coils at port B, the speed from EEPROM, the phases from
; a table in program memory that lies beyond the first half of it.

        LIST    P=PIC18F2550
        INCLUDE "p18f2550.inc"
        ERRORLEVEL -302, -1301

        CONFIG  PLLDIV = 5, CPUDIV = OSC1_PLL2, USBDIV = 2, FOSC = HSPLL_HS, FCMEN = OFF, IESO = OFF
        CONFIG  PWRT = ON, BOR = ON, BORV = 3, VREGEN = OFF, WDT = OFF, WDTPS = 1024
        CONFIG  CCP2MX = ON, PBADEN = OFF, LPT1OSC = OFF, MCLRE = ON
        CONFIG  STVREN = ON, LVP = OFF, XINST = OFF
        CONFIG  CP0 = OFF, CP1 = OFF, CP2 = OFF, CP3 = OFF, CPB = OFF, CPD = OFF
        CONFIG  WRT0 = ON, WRT1 = OFF, WRT2 = OFF, WRT3 = OFF, WRTC = OFF, WRTB = OFF, WRTD = OFF
        CONFIG  EBTR0 = OFF, EBTR1 = OFF, EBTR2 = OFF, EBTR3 = OFF, EBTRB = OFF

        __IDLOCS _IDLOC0, H'02'
        __IDLOCS _IDLOC1, H'00'
        __IDLOCS _IDLOC2, H'02'
        __IDLOCS _IDLOC3, H'06'
        __IDLOCS _IDLOC4, H'0B'
        __IDLOCS _IDLOC5, H'0A'
        __IDLOCS _IDLOC6, H'0F'
        __IDLOCS _IDLOC7, H'0E'

        CBLOCK  H'00'
phase
ticks
        ENDC

        ORG     H'0000'
        goto    start
        ORG     H'0008'
        retfie  FAST
        ORG     H'0018'
        retfie

start   clrf    TRISB
        clrf    phase
        movlw   UPPER phases
        movwf   TBLPTRU
        movlw   HIGH phases
        movwf   TBLPTRH
step    movf    phase, W
        andlw   H'03'
        addlw   LOW phases
        movwf   TBLPTRL
        tblrd   *
        movff   TABLAT, LATB
        incf    phase, F
        clrf    EEADR
        bcf     EECON1, EEPGD
        bcf     EECON1, CFGS
        bsf     EECON1, RD
        movff   EEDATA, ticks
wait    call    delay
        decfsz  ticks, F
        bra     wait
        bra     step

delay   clrf    WREG
spin    decfsz  WREG, F
        bra     spin
        return

        ORG     H'4F00'
phases  DB      H'03', H'06', H'0C', H'09'
        DB      "stepper"

        ORG     H'F00000'
        DE      H'40', H'20', H'10', "ABC"
        END
