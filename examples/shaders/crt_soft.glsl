// A small CRT look for the demo host: screen curvature, scanlines and a shadow mask.
// Only its parameter declarations matter to the dialog; the host compiles the rest.
#pragma parameter CURVATURE "Screen curvature" 0.08 0.0 0.25 0.01
#pragma parameter SCANLINE_WEIGHT "Scanline weight" 6.0 0.5 12.0 0.5
#pragma parameter SCANLINE_GAP "Gap between scanlines" 0.3 0.0 1.0 0.05
#pragma parameter MASK_DARK "Mask: dark stripes" 0.5 0.0 1.0 0.05
#pragma parameter MASK_LIGHT "Mask: light stripes" 1.5 1.0 2.0 0.05
#pragma parameter BLOOM "Bloom (continuous)" 0.2 0.0 1.0 0.0
#pragma parameter GAMMA_IN "Input gamma" 2.4 1.0 3.0 0.1
#pragma parameter GAMMA_OUT "Output gamma" 2.2 1.0 3.0 0.1

uniform sampler2D Source;
varying vec2 vTexCoord;
uniform float CURVATURE;
uniform float SCANLINE_WEIGHT;

void main() {
    vec2 centred = vTexCoord * 2.0 - 1.0;
    vec2 curved = centred * (1.0 + CURVATURE * dot(centred, centred));
    vec4 colour = texture2D(Source, curved * 0.5 + 0.5);
    float line = 0.5 + 0.5 * cos(vTexCoord.y * 3.14159 * SCANLINE_WEIGHT * 100.0);
    gl_FragColor = colour * mix(1.0, line, 0.5);
}
