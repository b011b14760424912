// Soft CRT look: curvature, scanlines and a shadow mask.
#version 130

#pragma parameter CURVATURE "Screen curvature" 0.08 0.0 0.25 0.01
	#pragma parameter SCANLINE_WEIGHT "Scanline weight (dark -> bright)" 6.0 0.5 12.0 0.5 // thicker below 2
  #pragma parameter MASK_DARK "Mask: dark, 0 = off"	0.5 1.0 0.0 0.05
#pragma parameter BLOOM "Bloom" 0.2 0.0 1.0
// #pragma parameter HIDDEN "Commented out" 1.0 0.0 2.0 0.1
/*
#pragma parameter IN_BLOCK "Inside a block comment" 1.0 0.0 2.0 0.1
*/
#ifdef PARAMETER_UNIFORM
uniform float CURVATURE;
#endif
void main() { gl_FragColor = vec4(CURVATURE); }
#pragma parameter GAMMA_OUT "Output gamma" 2.2 1.0 3.0 0