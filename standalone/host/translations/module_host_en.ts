<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US">
<context>
    <name>CAMERA</name>
    <message>
        <source>APPLICATION_NAME</source>
        <translation>Camera Diagnostics</translation>
    </message>
    <message>
        <source>CAMERA</source>
        <translation>Camera</translation>
    </message>
    <message>
        <source>QUICK_CAMERA</source>
        <translation>Quick Camera Tests</translation>
    </message>
    <message>
        <source>QUICK_CAMERA_TESTS_TOOLTIP</source>
        <translation>Short tests that show whether the camera works.</translation>
    </message>
    <message>
        <source>CAMERA_CAPTURE_TEST</source>
        <translation>Camera Capture Test</translation>
    </message>
    <message>
        <source>CAMERA_CAPTURE_TEST_DESCRIPTION</source>
        <translation>Shows the live picture of the camera and asks whether it was right.</translation>
    </message>
    <message>
        <source>CAMERA_BARCODE_TEST</source>
        <translation>Camera Barcode Test</translation>
    </message>
    <message>
        <source>CAMERA_BARCODE_TEST_DESCRIPTION</source>
        <translation>Reads a barcode that is held in front of the camera.</translation>
    </message>
    <message>
        <source>UDI</source>
        <translation>Unique device identifier</translation>
    </message>
    <message>
        <source>CAMERA_DESCRIPTION</source>
        <translation>Description</translation>
    </message>
    <message>
        <source>CAMERA_MANUFACTURER</source>
        <translation>Manufacturer</translation>
    </message>
    <message>
        <source>CAMERA_HARDWARE_ID</source>
        <translation>Hardware ID</translation>
    </message>
    <message>
        <source>CAMERA_TYPE</source>
        <translation>Type</translation>
    </message>
    <message>
        <source>DRIVER_VERSION</source>
        <translation>Driver version</translation>
    </message>
    <message>
        <source>CAMERA_VENDOR</source>
        <translation>Vendor</translation>
    </message>
    <message>
        <source>POSSIBLE_DEFECTIVE_COMPONENTS</source>
        <translation>Components that may be defective</translation>
    </message>
    <message>
        <source>CAMERA_DEVICE</source>
        <translation>camera</translation>
    </message>
    <message>
        <source>THIS_TEST_CANNOT_BE_PERFORMED_BECAUSE_THE_DEVICE_COULD_NOT_BE_IDENTIFIED_OR_HAS_BEEN_DISCONNECTED</source>
        <translation>This test cannot be performed because the device could not be identified or has been disconnected.</translation>
    </message>
    <message>
        <source>CANNOT_ACCESS_DEVICE</source>
        <translation>The camera cannot be accessed. Another program may be using it.</translation>
    </message>
    <message>
        <source>FAILED_TO_INITIALIZE</source>
        <translation>The camera could not be started.</translation>
    </message>
    <message>
        <source>FAILED_TO_CAPTURE</source>
        <translation>No picture could be taken with the camera.</translation>
    </message>
    <message>
        <source>FAILED_TO_CAPTURE_DEVICE_WAS_REMOVED</source>
        <translation>No picture could be taken because the camera was removed.</translation>
    </message>
    <message>
        <source>FAILED_TO_CAPTURE_DUE_TIMEOUT</source>
        <translation>The camera delivered no picture in time.</translation>
    </message>
    <message>
        <source>TEST_ABORTED_BY_EVENT</source>
        <translation>The test was ended by an event of the system.</translation>
    </message>
    <message>
        <source>CAMERA_RESULT_FAILED</source>
        <translation>The picture of the camera was not right.</translation>
    </message>
    <message>
        <source>BARCODE_VALUE</source>
        <translation>Barcode:</translation>
    </message>
    <message>
        <source>BARCODE_FAIL_SCAN_MESSAGE</source>
        <translation>The barcode could not be read.</translation>
    </message>
    <message>
        <source>BARCODE_CANCELED_DUE_INVALID_INPUT</source>
        <translation>The test was ended because the barcode held no valid value twice.</translation>
    </message>
    <message>
        <source>CAMERA_DIALOG_TITLE</source>
        <translation>Camera Capture Test</translation>
    </message>
    <message>
        <source>CAMERA_BARCODE_DIALOG_TITLE</source>
        <translation>Camera Barcode Test</translation>
    </message>
    <message>
        <source>CAMERA_FAIL_LABEL</source>
        <translation>Press Fail if the camera does not read the barcode.</translation>
    </message>
    <message>
        <source>CLOSE_POP_UP</source>
        <translation>Close the window</translation>
    </message>
    <message>
        <source>FAIL</source>
        <translation>Fail</translation>
    </message>
    <message>
        <source>INITIAL_MESSAGE</source>
        <translation>The live picture of the camera will be shown. Look at it closely: you will be asked whether it was right. Close the picture when you have seen enough.

Are you ready?</translation>
    </message>
    <message>
        <source>CHECK_CAMERA_IMAGE</source>
        <translation>Did the camera show a clear live picture with the right colors?</translation>
    </message>
    <message>
        <source>CAMERA_POINT_BARCODE_MESSAGE</source>
        <translation>Hold a barcode in front of the camera, inside the marks.</translation>
    </message>
    <message>
        <source>CAMERA_BARCODE_WARNING</source>
        <translation>This barcode holds no valid value</translation>
    </message>
    <message>
        <source>CAMERA_BARCODE_RETRY_MESSAGE</source>
        <translation>It may hold letters and digits only, at most 60. Try another barcode.</translation>
    </message>
</context>
<context>
    <name>ADVICE</name>
    <message>
        <source>THIS_TEST_CANNOT_BE_PERFORMED_BECAUSE_THE_DEVICE_COULD_NOT_BE_IDENTIFIED_OR_HAS_BEEN_DISCONNECTED</source>
        <translation>Connect the camera again, look for cameras, and run the test again.</translation>
    </message>
    <message>
        <source>CANNOT_ACCESS_DEVICE</source>
        <translation>Close programs that use the camera, and allow desktop apps to use it in the privacy settings of Windows.</translation>
    </message>
    <message>
        <source>FAILED_TO_INITIALIZE</source>
        <translation>Unplug the camera and plug it in again, or install its driver anew.</translation>
    </message>
    <message>
        <source>FAILED_TO_CAPTURE</source>
        <translation>Run the test again. If it happens again, try another port or another cable.</translation>
    </message>
    <message>
        <source>FAILED_TO_CAPTURE_DEVICE_WAS_REMOVED</source>
        <translation>Connect the camera again. If nobody unplugged it, check its cable.</translation>
    </message>
    <message>
        <source>FAILED_TO_CAPTURE_DUE_TIMEOUT</source>
        <translation>Check that the camera is switched on, then run the test again.</translation>
    </message>
    <message>
        <source>TEST_ABORTED_BY_EVENT</source>
        <translation>Run the test again.</translation>
    </message>
    <message>
        <source>CAMERA_RESULT_FAILED</source>
        <translation>Clean the lens and open its cover. If the picture stays wrong, the camera is probably defective.</translation>
    </message>
    <message>
        <source>BARCODE_FAIL_SCAN_MESSAGE</source>
        <translation>Try another barcode in good light. If none is read, the camera is probably not sharp.</translation>
    </message>
    <message>
        <source>BARCODE_CANCELED_DUE_INVALID_INPUT</source>
        <translation>Use a barcode of letters and digits only, at most 60.</translation>
    </message>
    <message>
        <source>POSSIBLE_DEFECTIVE_COMPONENTS</source>
        <translation>Try the camera on another PC, or another camera on this one, before you replace it.</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message numerus="yes">
        <source>%n more test(s) to run</source>
        <translation>
            <numerusform>%n more test to run</numerusform>
            <numerusform>%n more tests to run</numerusform>
        </translation>
    </message>
</context>
</TS>
